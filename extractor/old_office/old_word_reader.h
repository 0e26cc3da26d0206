// Old word reader: the text of Word 6 to 2003 (doc, dot).
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// To be called once, before the process gives up opening files.
void prepareOldWord();

// Paragraphs, headings by their styles, table cells row by row, of fields what they show. Notes,
// headers and footers are left out.
ReadDocument readOldWord(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
