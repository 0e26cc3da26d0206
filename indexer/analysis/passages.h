// Passages: a text cut into pieces that can be quoted.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "indexer/analysis/outline.h"

namespace norvast::indexer {

struct QuotablePassage {
  std::string text;     // as it stands in the file
  std::string heading;  // nearest above it, behind the name of its sheet, slide or chapter
};

// The text in pieces of at most 600 user-perceived characters, in order, without the white space
// around them; none is empty. A part of the document begins a new piece. A piece ends at the last
// heading in its second half, else at the last end of a paragraph there, else of a sentence, a line
// or a word, else where it is full, but never inside a user-perceived character. All but white
// space is in one of them, but for exact copies, of which one is kept, and for tables of values
// (value_table.h), of which the leading pieces of each run are kept. Linear in the text.
std::vector<QuotablePassage> cutPassages(const Outline& outline);

}  // namespace norvast::indexer
