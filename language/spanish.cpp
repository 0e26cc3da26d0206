// Spanish: what the analysis knows of it.
#include "language/languages.h"

namespace norvast {

constinit const Language SPANISH = {
    .name = "Spanish",
    .code = "es",
    .functionWords =
        "el la los las un una unos unas uno lo al del de ante bajo contra desde durante en "
        "entre hacia hasta mediante para por segun sobre tras ni pero sino aunque porque pues "
        "cuando donde mientras si que quien quienes cual cuales cuyo cuya cuyos cuyas cuanto "
        "cuantos cuanta cuantas yo tu ella ello nosotros vosotros ellos ellas usted ustedes me "
        "te se nos le les mi mis tus su sus nuestro nuestra nuestros nuestras este esta esto "
        "estos estas ese esa eso esos esas aquel aquella aquello aquellos aquellas otro otra "
        "otros otras mismo misma mismos mismas todo toda todos todas algun alguno alguna "
        "algunos algunas ningun ninguno ninguna nada nadie alguien algo cada ambos ambas "
        "varios varias mucho mucha muchos muchas poco poca pocos pocas mas menos muy tanto "
        "tanta tantos tantas tal tales ser es eran fue fueron sido siendo soy eres somos sera "
        "seran seria estar estan estaba estaban estuvo haber ha han habia habian hubo haya "
        "hayan tener tiene tienen tenia tenian tuvo poder puede pueden podia podian podria "
        "pudo deber debe deben hacer hace hacen hizo iba no tambien tampoco ya aun todavia "
        "siempre nunca jamas solamente aqui ahi alli ahora entonces luego despues antes asi "
        "bien quiza quizas casi ademas cierto cierta ciertos ciertas llama llamado llamada",
    .functionWordsInItsTextsAlone = "y e o u con sin son era sea hay van tan solo como mal",
    .months =
        "enero febrero marzo abril mayo junio julio agosto septiembre octubre noviembre "
        "diciembre",
    .datePrepositions = "de",
    .ordinalEndings = "º",
    .titles = "Sr Sra Señor Señora Capítulo Sección Figura Tabla Apéndice Nota Ejemplo Paso",
    .openers =
        "querido querida estimado estimada hola gracias véase vea usar instalar pulse elija "
        "abra nuevo nueva",
    .connectors = "de del la y",
    .articlesInNames = "la",
    .placePrepositions = "en desde",
    .emptyTitles = "sin título|índice|nombre",
    .replyMarks = "rv:",
    .notices = "todos los derechos reservados|bajo los términos de",
    .leaningStarts = "esto |este |pero |véase ",
    .references = "siguiente|a continuación|véase",
};

}  // namespace norvast
