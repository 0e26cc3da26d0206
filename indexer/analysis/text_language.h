// Text language: in which of the languages that the analysis knows a text is written.
#pragma once

#include <string>
#include <string_view>

#include "indexer/analysis/outline.h"
#include "language/function_words.h"

namespace norvast::indexer {

// The language with the most function words among the leading 600 words, of which a paragraph gives
// 40 at the most. English stands in texts of all languages: it is the text's own when no other has
// half as many, or when they are too few to tell.
Language languageOf(const Outline& outline);

// Its two letters (ISO 639-1).
std::string localeOf(Language language);

// Whether a word, in lower case or not, is a function word in texts of that language.
bool isFunctionWordIn(std::string_view word, Language language);

}  // namespace norvast::indexer
