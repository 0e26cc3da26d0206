// Text language: in which of the languages that the analysis knows a text is written.
#pragma once

#include "indexer/analysis/outline.h"
#include "language/language.h"

namespace norvast::indexer {

// The language with the most function words among the leading 600 words, of which a paragraph gives
// 40 at the most. English stands in texts of all languages: it is the text's own when no other has
// half as many, or when they are too few to tell.
const Language& languageOf(const Outline& outline);

}  // namespace norvast::indexer
