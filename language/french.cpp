// French: what the analysis knows of it.
#include "language/languages.h"

namespace norvast {

constinit const Language FRENCH = {
    .name = "French",
    .code = "fr",
    .functionWords =
        "le la les un une des de du d au aux ce cet cette ces mon ma mes ta tes sa ses notre "
        "nos votre vos leur leurs quelque quelques chaque tout toute tous toutes plusieurs "
        "aucun aucune autre autres meme memes tel telle tels telles certain certaine certains "
        "certaines je tu il elle on nous vous ils elles me m te t se s lui eux moi toi soi en "
        "ceci cela ca celui celle ceux celles rien personne quelqu chacun chacune qui que qu "
        "quoi dont ou quel quelle quels quelles lequel laquelle lesquels lesquelles duquel "
        "auquel quand combien pourquoi et mais donc ni si lorsque lorsqu puisque puisqu parce "
        "quoique afin ainsi avec sans dans sous chez entre vers contre pendant depuis avant "
        "apres selon malgre parmi durant jusque jusqu hors lors suis es est sommes etes sont "
        "ete etre etait etaient etant sera seront serait fut furent soit soient as avons avez "
        "ont avoir avait avaient eu aura auront aurait ayant peut peuvent pouvez pouvoir "
        "pouvait doit doivent devoir devez fait faire font faut va vont ne pas tres trop peu "
        "moins aussi bien encore toujours jamais deja ici ci alors puis ensuite enfin "
        "seulement surtout souvent parfois presque cependant toutefois tandis ailleurs oui non "
        "beaucoup aujourd hui",
    .functionWordsInItsTextsAlone = "c l n j y pour par sur plus son ton car comment ai point",
    .months =
        "janvier février mars avril mai juin juillet août septembre octobre novembre décembre",
    .ordinalEndings = "er",
    .titles = "Mme Mlle Monsieur Madame Chapitre Tableau Annexe Partie Remarque Exemple Étape",
    .openers =
        "cher chère bonjour merci voir utiliser installer cliquez choisissez ouvrez entrez "
        "nouveau nouvelle",
    .connectors = "de du des la le",
    .articlesInNames = "la le",
    .placePrepositions = "à en chez",
    .elidedWords = "l d qu n s c j m t",
    .emptyTitles = "sans titre|table des matières|sommaire|nom",
    .replyMarks = "tr:",
    .notices = "tous droits réservés|selon les termes de|licence publique|envoyé de mon",
    .leaningStarts = "ce |cette |ces |cela |il |elle |mais |voir ",
    .references = "suivant|ci-dessous|ci-dessus| voir ",
};

}  // namespace norvast
