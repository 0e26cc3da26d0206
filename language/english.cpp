// English: what the analysis knows of it.
#include "language/languages.h"

namespace norvast {

constinit const Language ENGLISH = {
    .name = "English",
    .code = "en",
    .functionWords =
        "a an the this that these those each every either neither some any no all both few "
        "many much more most other another such several own same enough i me my mine myself we "
        "us our ours ourselves you your yours yourself yourselves he him his himself she her "
        "hers herself it its itself they them their theirs themselves one ones someone "
        "somebody something anyone anybody anything everyone everybody everything nobody "
        "nothing none about above across after against along among around as at before behind "
        "below beneath beside besides between beyond by concerning despite down during except "
        "for from in inside into like near of off on onto out outside over per regarding since "
        "through throughout till to toward towards under until up upon via with within without "
        "and or but nor so yet if then else than because although though while whereas unless "
        "whether am is are was were be been being do does did doing done have has had having "
        "can could may might must shall should will would ought cannot get gets got let lets "
        "who whom whose what which when where why how whatever whichever whoever wherever "
        "whenever however not too very also just only even still again ever never always often "
        "once here there now quite rather really almost already perhaps maybe thus hence "
        "therefore away back s t d m ll re ve don doesn didn isn aren wasn weren hasn haven "
        "hadn won wouldn couldn shouldn mustn ain im dont please show tell give find list "
        "explain describe want need know say says said",
    .months =
        "January February March April May June July August September October November December "
        "Jan Feb Mar Apr Jun Jul Aug Sep Sept Oct Nov Dec",
    .weekdays =
        "Monday Tuesday Wednesday Thursday Friday Saturday Sunday Mon Tue Wed Thu Fri Sat Sun",
    .datePrepositions = "of",
    .ordinalEndings = "st nd rd th",
    .titles =
        "Dr Mr Mrs Ms Prof Chapter Section Figure Table Appendix Part Note Example Page Volume "
        "Step",
    .openers =
        "dear hello hi hey thanks cheers regards subject see use using install click select "
        "choose enter open press type run add set create note todo warning new old yes no ok "
        "okay ask visit call write read check make sure first second third finally next last "
        "today yesterday tomorrow mail meet contact with via by author version copyright",
    .connectors = "of the &",
    .articlesInNames = "the",
    .placePrepositions = "in at from near",
    .possessiveEndings = "'s ’s",
    .streets = "Street Road Avenue Lane Drive Boulevard Square Terrace Crescent",
    .emptyTitles =
        "untitled|document|slide|sheet|presentation|microsoft|powerpoint|contents|"
        "table of contents|name|page|synopsis|no title|title",
    // Programs in Sweden, Norway and Denmark write "sv:".
    .replyMarks = "re: fw: fwd: sv:",
    .notices =
        "copyright|(c) 1|(c) 2|all rights reserved|under the terms of|permission is granted|"
        "permission is hereby|without any warranty|without warranty|warranties|"
        "general public license|free documentation license|creative commons|licensed under|"
        "this file is part of|unsubscribe|cookies|javascript|view this email in|sent from my|"
        "mailing list|this page was last|cc by-sa",
    .leaningStarts =
        "this |these |that |those |it |they |such |but |and |however|therefore|thus|so |then |"
        "also|for example|for details|see |he |she |note |if ",
    .references =
        "following|follows| below| above|see section|refer to|table of contents|download |"
        "click ",
};

}  // namespace norvast
