// Portuguese: what the analysis knows of it.
#include "language/languages.h"

namespace norvast {

constinit const Language PORTUGUESE = {
    .name = "Portuguese",
    .code = "pt",
    .functionWords =
        "a um uma uns umas de do da das em no na nos nas por pelo pela pelos pelas para sem "
        "sobre entre desde ao aos ou mas porem nem que quem qual quais cujo cuja quanto quanta "
        "quantos quantas onde quando porque se eu tu ele ela eles elas voce voces me te lhe "
        "lhes meu minha meus minhas teu tua seu sua seus suas nosso nossa nossos nossas este "
        "esta isto estes estas esse essa isso esses essas aquele aquela aquilo aqueles aquelas "
        "outro outra outros outras mesmo mesma mesmos mesmas todo toda todos todas tudo algum "
        "alguma alguns algumas nenhum nenhuma nada ninguem alguem algo cada ambos ambas varios "
        "varias muito muita muitos muitas pouco pouca poucos poucas mais menos tao tanto tanta "
        "ser sao eram foi foram sido sendo seja sejam sera serao seria estar estao estava "
        "estavam esteve ter tem tinha tinham teve tenha haver ha havia houve pode podem podia "
        "poder poderia deve devem fazer faz fazem vai vao nao sim tambem ja ainda sempre nunca "
        "apenas so aqui ali agora entao depois antes assim bem quase alem disso dele dela "
        "deles delas numa neste nesta nesse nessa deste desta desse dessa nestes nestas destes "
        "destas num",
    .functionWordsInItsTextsAlone = "o e os dos com ate sob era ai como mal",
    .months =
        "janeiro fevereiro março abril maio junho julho agosto setembro outubro novembro "
        "dezembro",
    .datePrepositions = "de",
    .ordinalEndings = "º",
    .titles = "Capítulo Figura Nota",
    .connectors = "de da do dos du",
    .placePrepositions = "em desde",
    .emptyTitles = "índice|nome",
    .leaningStarts = "este ",
};

}  // namespace norvast
