// Name words: what is known of single words in the languages of the analysis, for telling names.
#pragma once

#include <string_view>

#include "language/function_words.h"

namespace norvast::indexer {

// The name of a month, in any of the languages, or its usual short form. Case as it is written.
bool isMonth(std::string_view word);

// A day of the week, likewise.
bool isWeekday(std::string_view word);

// Stands between words of one name: of, van, de, della.
bool isConnector(std::string_view word);

// Stands there only behind one of the others: the, der, la.
bool isArticleInNames(std::string_view word);

// Stands before a name and is none of it: Dr, Mr, Herr, Señora, Chapter, Figure.
bool isTitle(std::string_view word);

// Opens a sentence and is not its subject: greetings and what manuals begin instructions with. In
// lower case.
bool isOpener(std::string_view word);

// A preposition that a place follows: in, at, à, en, desde. In lower case.
bool isPlacePreposition(std::string_view word, Language language);

// A word that only a noun or an adjective follows: der, eine, jedes; in lower case. Where nouns
// have capitals, this tells them from names.
bool isGermanDeterminer(std::string_view word);

// A German noun that stands behind "in", "aus" or "nach" without an article, and is no place.
bool isPlacelessNoun(std::string_view word);

}  // namespace norvast::indexer
