// Italian: what the analysis knows of it.
#include "language/languages.h"

namespace norvast {

constinit const Language ITALIAN = {
    .name = "Italian",
    .code = "it",
    .functionWords =
        "il lo la gli le un uno una di da in su per tra fra del dello della dei degli delle "
        "dell al allo alla agli alle all dal dallo dalla dai dagli dalle dall nel nello nella "
        "nei negli nelle nell sul sullo sulla sui sugli sulle sull col coi quest quell ed od "
        "ma pero anche se che chi cui quale quali qual quanto quanta quanti quante quando "
        "perche poiche mentre sebbene dunque quindi cosi oppure io tu lui lei noi voi loro "
        "egli ella esso essa essi esse mi ti ci vi si me te ne mio mia miei mie tuo tua tuoi "
        "tue suo sua suoi sue nostro nostra nostri nostre vostro vostra vostri vostre questo "
        "questa questi queste quello quella quelli quelle quel quei quegli stesso stessa "
        "stessi stesse altro altra altri altre ogni ognuno alcuni alcune alcuno alcuna nessun "
        "nessuno nessuna niente nulla qualcosa qualcuno qualche tutto tutta tutti tutte molto "
        "molta molti molte poco poca pochi poche piu meno tanto tanta tanti tante essere sono "
        "sei siamo siete erano fu furono stato stata stati sia siano sara saranno sarebbe "
        "avere ho hai ha abbiamo avete hanno aveva avevano avuto abbia abbiano puo possono "
        "potere poteva deve devono dovere viene vengono venne fare fa fanno fatto non gia "
        "ancora sempre mai soltanto qui qua li poi ora adesso dopo durante senza verso contro "
        "sotto sopra dentro fuori oltre presso fino circa bene d",
    .functionWordsInItsTextsAlone = "e o c l con era ai come dove solo state",
    .months =
        "gennaio febbraio marzo aprile maggio giugno luglio agosto settembre ottobre novembre "
        "dicembre",
    .ordinalEndings = "º",
    .titles =
        "Signor Signora Sig Dott Capitolo Sezione Figura Tabella Appendice Nota Esempio Passo",
    .openers =
        "caro cara ciao grazie vedere vedi usare installare premere scegliere aprire nuovo "
        "nuova",
    .connectors = "de del della dei di da la le",
    .articlesInNames = "la le",
    .placePrepositions = "a in da",
    .elidedWords = "l d un dell all nell sull dall quest",
    .emptyTitles = "senza titolo|indice|nome",
    .notices = "tutti i diritti riservati|secondo i termini della",
    .leaningStarts = "questo |ma |vedere |quindi ",
    .references = "seguent|di seguito|vedere ",
};

}  // namespace norvast
