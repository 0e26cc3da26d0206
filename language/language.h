// Language: all that is known of one language, as plain data, in one file a language.
//
// To add a language, say Polish:
//   1. Copy `dutch.cpp` to `polish.cpp` and fill in what you know. A field that is left out stays
//      empty, and the rules that ask it then find nothing.
//   2. Declare `POLISH` in `languages.h` and put it at the end of `LANGUAGES` there.
//   3. Name `polish.cpp` in `CMakeLists.txt`.
//   4. Give it a row in the test of text languages, and name `EMBEDDING_SCHEME` anew: its function
//      words change the vectors of texts, and vectors of two schemes must not be compared.
// The function words matter most, as they tell in which language a text is written; 100 of the most
// frequent ones are a good beginning. Add a word to the other lists only where it is seen to help.
#pragma once

#include <string_view>

namespace norvast {

// A list of words has blanks between them. A list of phrases, which hold blanks themselves, has a
// bar between them; blanks beside a bar belong to the phrase and mark the end of a word. No list
// may hold an empty entry.
//
// Lists marked "of all" are asked together for all languages, because texts mix them (an English
// letter holds the name of a German street). The others are asked for the text's language alone.
struct Language {
  std::string_view name;  // in English
  std::string_view code;  // ISO 639-1, as ICU takes it for the abbreviations of the language

  bool nounsHaveCapitals = false;     // so that a capital alone does not make a name
  bool ordinalsEndWithPoint = false;  // "am 14. Mai", where the point ends no sentence

  // Articles, pronouns, prepositions, conjunctions, auxiliaries, question words and the like, in
  // lower case and without diacritics (but ß).
  std::string_view functionWords = {};
  // Those that are content words of English too, such as German "die" and "war". They are function
  // words only in texts of this language.
  std::string_view functionWordsInItsTextsAlone = {};

  // Dates, of all. Names of months and days as they are written, short forms included.
  std::string_view months = {};
  std::string_view weekdays = {};
  std::string_view datePrepositions = {};  // between day, month and year: "14 de mayo de 2026"
  std::string_view ordinalEndings = {};    // behind the day: "1st"

  // Names, of all. `openers` are in lower case; the others are as written.
  std::string_view titles = {};           // before a name and no part of it: "Dr", "Chapter"
  std::string_view openers = {};          // they open a sentence and are not its subject: "dear"
  std::string_view connectors = {};       // between the words of a name: "of", "van"
  std::string_view articlesInNames = {};  // connectors that follow another one only: "van der"

  // Names, of the text's language.
  std::string_view connectorsOfNouns = {};  // connectors that stand between any two nouns, too
  std::string_view placePrepositions = {};  // a place often follows: "in"; in lower case
  std::string_view determiners = {};        // a noun follows, so no name; in lower case
  std::string_view placelessNouns = {};     // behind a place preposition, and yet no place
  // An adjective ends in a suffix and one of the endings behind it: "graf-isch-e".
  std::string_view adjectiveSuffixes = {};
  std::string_view adjectiveEndings = {};
  std::string_view abstractNounSuffixes = {};  // "Sicher-heit"

  // Words that are joined to a name, of all.
  std::string_view elidedWords = {};        // before an apostrophe: "l'Europe"; in lower case
  std::string_view possessiveEndings = {};  // with each apostrophe that is in use: "Anna's"

  // Streets, of all: words of their own ("Baker Street") and ends of words ("Gartenweg").
  std::string_view streets = {};
  std::string_view streetEndings = {};

  // Summaries, of all, in lower case; all but `replyMarks` are phrases. Notices and references have
  // four bytes or more each.
  std::string_view emptyTitles = {};    // titles that say nothing of their text: "untitled"
  std::string_view replyMarks = {};     // what mail programs put before a subject: "re:"
  std::string_view notices = {};        // in sentences about rights and the like
  std::string_view leaningStarts = {};  // a sentence that begins so needs the one before it
  std::string_view references = {};     // in sentences that point to another place in the text
};

}  // namespace norvast
