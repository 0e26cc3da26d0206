// German: what the analysis knows of it.
#include "language/languages.h"

namespace norvast {

constinit const Language GERMAN = {
    .name = "German",
    .code = "de",
    .nounsHaveCapitals = true,
    .ordinalsEndWithPoint = true,
    .functionWords =
        "der das dem des ein eine einen einem einer eines kein keine keinen keinem keiner "
        "keines ich du er sie es wir ihr mich mir dich ihn ihm uns euch sich ihnen mein meine "
        "meinen meinem meiner meines dein deine deinen deinem deiner sein seine seinen seinem "
        "seiner seines ihre ihren ihrem ihrer ihres unser unsere unseren unserem unserer euer "
        "eure dieser diese dieses diesen diesem jener jene jenes jenen jenem jeder jede jedes "
        "jeden jedem alle allen aller alles allem einige einigen einiger manche manchen "
        "mancher viele vielen vieler viel mehr mehrere mehreren wenig wenige wenigen andere "
        "anderen anderer anderes anderem solche solchen solcher beide beiden selbst selber "
        "jemand niemand etwas nichts wer wen wem wessen was welche welcher welches welchen "
        "welchem wann wo wohin woher warum wieso weshalb wie wieviel wieviele womit wodurch "
        "wofur woran worauf worin wovon wozu wobei und oder aber denn sondern doch jedoch als "
        "wenn weil dass daß ob obwohl wahrend bevor nachdem damit falls sobald solange sowie "
        "sowohl entweder weder noch in an am auf im ins zu zum zur bei beim nach von vom vor "
        "aus uber unter neben zwischen durch gegen ohne um bis seit wegen trotz ab ausser "
        "außer innerhalb außerhalb hinter gegenuber statt bist ist sind seid warst waren "
        "gewesen sei seien ware haben habe hast habt hatte hatten gehabt werden werde wirst "
        "wird werdet wurde wurden geworden worden kann kannst konnen konnt konnte konnten muss "
        "musst mussen musste mussten muß soll sollen sollte sollten will wollen wollte wollten "
        "darf durfen durfte durften mogen mochte mochten lassen lasst laßt gibt nicht auch nur "
        "schon sehr so dann da dort hier jetzt immer wieder nie niemals oft wohl ja nein etwa "
        "bereits dabei dazu dafur dagegen daher darum deshalb dadurch daraus darin daran "
        "darauf davon davor danach dahin hin her zwar allerdings also ebenfalls ebenso ganz "
        "eher erst kaum nachher vorher vielleicht meist meistens mindestens zumindest ungefahr "
        "usw bzw bitte zeige zeig nenne nennen sage sagen erklare beschreibe",
    .functionWordsInItsTextsAlone = "die den war man hat fur bin fast mit mag wart nun dir gar mal",
    .months =
        "Januar Jänner Februar März April Mai Juni Juli August September Oktober November "
        "Dezember Okt Dez",
    .weekdays = "Montag Dienstag Mittwoch Donnerstag Freitag Samstag Sonnabend Sonntag",
    .titles =
        "Herr Herrn Frau Kapitel Abschnitt Abbildung Tabelle Anhang Teil Seite Hinweis "
        "Beispiel Schritt",
    .openers =
        "liebe lieber hallo danke sehr siehe installieren klicken wählen öffnen drücken geben "
        "neue neuer neues gruß grüße heute gestern morgen",
    .connectors = "von der den des zu zum",
    .articlesInNames = "der den",
    .connectorsOfNouns = "von",
    .placePrepositions = "in aus nach",
    .determiners =
        "der die das den dem des ein eine einen einem einer eines kein keine keinen keinem "
        "keiner jeder jede jedes jeden jedem diese dieser dieses diesen diesem welche welcher "
        "welches alle allen aller viele vielen mehrere einige zwei drei vier mein meine dein "
        "sein seine ihr ihre ihren ihrem ihrer unser unsere im am zum zur beim vom ins ans "
        "manche solche andere anderen mehr weitere folgende folgenden neue neuen",
    .placelessNouns =
        "Form Betracht Frage Kraft Anspruch Betrieb Gang Angriff Kauf Ausschau Gründen Sicht "
        "Regel Höhe Bezug Ruhe Auftrag Arbeit Zukunft Anlehnung Fällen Teilen Klammern Zeiten "
        "Bedarf Wunsch Jahren Monaten Tagen Stunden Minuten Sekunden Prozent Dateien Paketen "
        "Holz Glas Hause",
    .adjectiveSuffixes = "isch lich ig bar end sam ell al iv ert los eit ßt",
    .adjectiveEndings = "e er es en em",
    .abstractNounSuffixes = "ung ungen heit keit schaft ion ionen isse nis",
    .streetEndings = "strasse straße gasse weg platz allee",
    .emptyTitles = "unbenannt|dokument|folie|tabelle|inhalt|inhaltsverzeichnis|bezeichnung|seite",
    .replyMarks = "aw: wg:",
    .notices =
        "alle rechte vorbehalten|unter den bedingungen der|lizenz veröffentlicht|"
        "gesendet von meinem",
    .leaningStarts = "dies|das |es |sie |daher|jedoch|aber |und |siehe |wenn ",
    .references = "folgende|siehe |unten",
};

}  // namespace norvast
