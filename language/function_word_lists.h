// Function word lists: one of each language that the embedding knows, for function_words.cpp alone.
#pragma once

#include <array>
#include <string_view>

namespace norvast::function_word_lists {

// Words are in lower case and without marks, separated by blanks. Those that are content words of
// English too (German "die" and "war") stand under `inItsTextsAlone`: they are function words only
// in a text of that language.
struct List {
  std::string_view everywhere;
  std::string_view inItsTextsAlone;
};

inline constexpr List ENGLISH = {
    // articles and determiners
    "a an the this that these those each every either neither some any no all both few many much "
    "more most other another such several own same enough "
    // pronouns
    "i me my mine myself we us our ours ourselves you your yours yourself yourselves he him his "
    "himself she her hers herself it its itself they them their theirs themselves one ones someone "
    "somebody something anyone anybody anything everyone everybody everything nobody nothing none "
    // prepositions
    "about above across after against along among around as at before behind below beneath beside "
    "besides between beyond by concerning despite down during except for from in inside into like "
    "near of off on onto out outside over per regarding since through throughout till to toward "
    "towards under until up upon via with within without "
    // conjunctions
    "and or but nor so yet if then else than because although though while whereas unless whether "
    // auxiliaries
    "am is are was were be been being do does did doing done have has had having can could may "
    "might must shall should will would ought cannot get gets got let lets "
    // question words
    "who whom whose what which when where why how whatever whichever whoever wherever whenever "
    "however "
    // adverbs
    "not too very also just only even still again ever never always often once here there now "
    "quite rather really almost already perhaps maybe thus hence therefore away back "
    // remains of contractions
    "s t d m ll re ve don doesn didn isn aren wasn weren hasn haven hadn won wouldn couldn shouldn "
    "mustn ain im dont "
    // requests
    "please show tell give find list explain describe want need know say says said",
    ""};

inline constexpr List GERMAN = {
    "der das dem des ein eine einen einem einer eines kein keine keinen keinem keiner keines ich "
    "du er sie es wir ihr mich mir dich ihn ihm uns euch sich ihnen mein meine meinen meinem "
    "meiner meines dein deine deinen deinem deiner sein seine seinen seinem seiner seines ihre "
    "ihren ihrem ihrer ihres unser unsere unseren unserem unserer euer eure dieser diese dieses "
    "diesen diesem jener jene jenes jenen jenem jeder jede jedes jeden jedem alle allen aller "
    "alles allem einige einigen einiger manche manchen mancher viele vielen vieler viel mehr "
    "mehrere mehreren wenig wenige wenigen andere anderen anderer anderes anderem solche solchen "
    "solcher beide beiden selbst selber jemand niemand etwas nichts wer wen wem wessen was welche "
    "welcher welches welchen welchem wann wo wohin woher warum wieso weshalb wie wieviel wieviele "
    "womit wodurch wofur woran worauf worin wovon wozu wobei und oder aber denn sondern doch "
    "jedoch als wenn weil dass daß ob obwohl wahrend bevor nachdem damit falls sobald solange "
    "sowie sowohl entweder weder noch in an am auf im ins zu zum zur bei beim nach von vom vor "
    "aus uber unter neben zwischen durch gegen ohne um bis seit wegen trotz ab ausser außer "
    "innerhalb außerhalb hinter gegenuber statt bist ist sind seid warst waren gewesen sei seien "
    "ware haben habe hast habt hatte hatten gehabt werden werde wirst wird werdet wurde wurden "
    "geworden worden kann kannst konnen konnt konnte konnten muss musst mussen musste mussten muß "
    "soll sollen sollte sollten will wollen wollte wollten darf durfen durfte durften mogen "
    "mochte mochten lassen lasst laßt gibt nicht auch nur schon sehr so dann da dort hier jetzt "
    "immer wieder nie niemals oft wohl ja nein etwa bereits dabei dazu dafur dagegen daher darum "
    "deshalb dadurch daraus darin daran darauf davon davor danach dahin hin her zwar allerdings "
    "also ebenfalls ebenso ganz eher erst kaum nachher vorher vielleicht meist meistens "
    "mindestens zumindest ungefahr usw bzw bitte zeige zeig nenne nennen sage sagen erklare "
    "beschreibe",
    "die den war man hat fur bin fast mit mag wart nun dir gar mal"};

inline constexpr List FRENCH = {
    "le la les un une des de du d au aux ce cet cette ces mon ma mes ta tes sa ses notre nos "
    "votre vos leur leurs quelque quelques chaque tout toute tous toutes plusieurs aucun aucune "
    "autre autres meme memes tel telle tels telles certain certaine certains certaines je tu il "
    "elle on nous vous ils elles me m te t se s lui eux moi toi soi en ceci cela ca celui celle "
    "ceux celles rien personne quelqu chacun chacune qui que qu quoi dont ou quel quelle quels "
    "quelles lequel laquelle lesquels lesquelles duquel auquel quand combien pourquoi et mais "
    "donc ni si lorsque lorsqu puisque puisqu parce quoique afin ainsi avec sans dans sous chez "
    "entre vers contre pendant depuis avant apres selon malgre parmi durant jusque jusqu hors "
    "lors suis es est sommes etes sont ete etre etait etaient etant sera seront serait fut furent "
    "soit soient as avons avez ont avoir avait avaient eu aura auront aurait ayant peut peuvent "
    "pouvez pouvoir pouvait doit doivent devoir devez fait faire font faut va vont ne pas tres "
    "trop peu moins aussi bien encore toujours jamais deja ici ci alors puis ensuite enfin "
    "seulement surtout souvent parfois presque cependant toutefois tandis ailleurs oui non "
    "beaucoup aujourd hui",
    "c l n j y pour par sur plus son ton car comment ai point"};

inline constexpr List SPANISH = {
    "el la los las un una unos unas uno lo al del de ante bajo contra desde durante en entre "
    "hacia hasta mediante para por segun sobre tras ni pero sino aunque porque pues cuando donde "
    "mientras si que quien quienes cual cuales cuyo cuya cuyos cuyas cuanto cuantos cuanta "
    "cuantas yo tu ella ello nosotros vosotros ellos ellas usted ustedes me te se nos le les mi "
    "mis tus su sus nuestro nuestra nuestros nuestras este esta esto estos estas ese esa eso esos "
    "esas aquel aquella aquello aquellos aquellas otro otra otros otras mismo misma mismos mismas "
    "todo toda todos todas algun alguno alguna algunos algunas ningun ninguno ninguna nada nadie "
    "alguien algo cada ambos ambas varios varias mucho mucha muchos muchas poco poca pocos pocas "
    "mas menos muy tanto tanta tantos tantas tal tales ser es eran fue fueron sido siendo soy "
    "eres somos sera seran seria estar estan estaba estaban estuvo haber ha han habia habian hubo "
    "haya hayan tener tiene tienen tenia tenian tuvo poder puede pueden podia podian podria pudo "
    "deber debe deben hacer hace hacen hizo iba no tambien tampoco ya aun todavia siempre nunca "
    "jamas solamente aqui ahi alli ahora entonces luego despues antes asi bien quiza quizas casi "
    "ademas cierto cierta ciertos ciertas llama llamado llamada",
    "y e o u con sin son era sea hay van tan solo como mal"};

inline constexpr List ITALIAN = {
    "il lo la gli le un uno una di da in su per tra fra del dello della dei degli delle dell al "
    "allo alla agli alle all dal dallo dalla dai dagli dalle dall nel nello nella nei negli nelle "
    "nell sul sullo sulla sui sugli sulle sull col coi quest quell ed od ma pero anche se che "
    "chi cui quale quali qual quanto quanta quanti quante quando perche poiche mentre sebbene "
    "dunque quindi cosi oppure io tu lui lei noi voi loro egli ella esso essa essi esse mi ti ci "
    "vi si me te ne mio mia miei mie tuo tua tuoi tue suo sua suoi sue nostro nostra nostri "
    "nostre vostro vostra vostri vostre questo questa questi queste quello quella quelli quelle "
    "quel quei quegli stesso stessa stessi stesse altro altra altri altre ogni ognuno alcuni "
    "alcune alcuno alcuna nessun nessuno nessuna niente nulla qualcosa qualcuno qualche tutto "
    "tutta tutti tutte molto molta molti molte poco poca pochi poche piu meno tanto tanta tanti "
    "tante essere sono sei siamo siete erano fu furono stato stata stati sia siano sara saranno "
    "sarebbe avere ho hai ha abbiamo avete hanno aveva avevano avuto abbia abbiano puo possono "
    "potere poteva deve devono dovere viene vengono venne fare fa fanno fatto non gia ancora "
    "sempre mai soltanto qui qua li poi ora adesso dopo durante senza verso contro sotto sopra "
    "dentro fuori oltre presso fino circa bene d",
    "e o c l con era ai come dove solo state"};

inline constexpr List PORTUGUESE = {
    "a um uma uns umas de do da das em no na nos nas por pelo pela pelos pelas para sem sobre "
    "entre desde ao aos ou mas porem nem que quem qual quais cujo cuja quanto quanta quantos "
    "quantas onde quando porque se eu tu ele ela eles elas voce voces me te lhe lhes meu minha "
    "meus minhas teu tua seu sua seus suas nosso nossa nossos nossas este esta isto estes estas "
    "esse essa isso esses essas aquele aquela aquilo aqueles aquelas outro outra outros outras "
    "mesmo mesma mesmos mesmas todo toda todos todas tudo algum alguma alguns algumas nenhum "
    "nenhuma nada ninguem alguem algo cada ambos ambas varios varias muito muita muitos muitas "
    "pouco pouca poucos poucas mais menos tao tanto tanta ser sao eram foi foram sido sendo seja "
    "sejam sera serao seria estar estao estava estavam esteve ter tem tinha tinham teve tenha "
    "haver ha havia houve pode podem podia poder poderia deve devem fazer faz fazem vai vao nao "
    "sim tambem ja ainda sempre nunca apenas so aqui ali agora entao depois antes assim bem quase "
    "alem disso dele dela deles delas numa neste nesta nesse nessa deste desta desse dessa nestes "
    "nestas destes destas num",
    "o e os dos com ate sob era ai como mal"};

inline constexpr List DUTCH = {
    "de het een der des te ik jij je hij zij ze wij we jullie hun hem haar mij me jou ons zich "
    "mijn jouw zijn uw onze deze dit dat zulke welke welk elke ieder iedere alle allen alles "
    "andere anderen beide enkele sommige veel vele weinig meer meest minder geen iemand niemand "
    "iets niets wie wat waar wanneer waarom hoe hoeveel waarin waarop waarmee waarvan waardoor "
    "waarbij en of maar want dus omdat hoewel als toen terwijl zodat indien tenzij noch aan "
    "achter bij binnen boven buiten in langs na naar naast om onder op over per rond sinds tegen "
    "tijdens tot tussen uit vanaf via volgens voor zonder zoals bent is was waren geweest heb "
    "hebt heeft hebben had hadden gehad wordt worden werd werden geworden kan kunt kunnen kon "
    "konden moet moeten moest moesten mogen mocht mochten zal zult zullen zou zouden wil willen "
    "wilde wilden laat laten gaat gaan doet doen niet ook al nog wel er daar hier nu toch zo zeer "
    "vaak altijd nooit ooit weer reeds echter slechts alleen misschien bijvoorbeeld ongeveer "
    "bijna eens",
    "u die den van met door ben word mag dan elk hen men toe erg"};

// In the order of `Language`.
inline constexpr std::array ALL = {ENGLISH, GERMAN, FRENCH, SPANISH, ITALIAN, PORTUGUESE, DUTCH};

}  // namespace norvast::function_word_lists
