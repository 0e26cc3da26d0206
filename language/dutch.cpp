// Dutch: what the analysis knows of it.
#include "language/languages.h"

namespace norvast {

constinit const Language DUTCH = {
    .name = "Dutch",
    .code = "nl",
    .functionWords =
        "de het een der des te ik jij je hij zij ze wij we jullie hun hem haar mij me jou ons "
        "zich mijn jouw zijn uw onze deze dit dat zulke welke welk elke ieder iedere alle "
        "allen alles andere anderen beide enkele sommige veel vele weinig meer meest minder "
        "geen iemand niemand iets niets wie wat waar wanneer waarom hoe hoeveel waarin waarop "
        "waarmee waarvan waardoor waarbij en of maar want dus omdat hoewel als toen terwijl "
        "zodat indien tenzij noch aan achter bij binnen boven buiten in langs na naar naast om "
        "onder op over per rond sinds tegen tijdens tot tussen uit vanaf via volgens voor "
        "zonder zoals bent is was waren geweest heb hebt heeft hebben had hadden gehad wordt "
        "worden werd werden geworden kan kunt kunnen kon konden moet moeten moest moesten "
        "mogen mocht mochten zal zult zullen zou zouden wil willen wilde wilden laat laten "
        "gaat gaan doet doen niet ook al nog wel er daar hier nu toch zo zeer vaak altijd "
        "nooit ooit weer reeds echter slechts alleen misschien bijvoorbeeld ongeveer bijna eens",
    .functionWordsInItsTextsAlone = "u die den van met door ben word mag dan elk hen men toe erg",
    .months = "januari februari maart april mei juni juli augustus september oktober december",
    .titles = "Hoofdstuk",
    .connectors = "van der den de ten",
    .articlesInNames = "der den",
    .placePrepositions = "in uit te",
    .streetEndings = "straat laan",
};

}  // namespace norvast
