// Word reader: the text of word processing files (docx, docm, dotx, dotm).
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Returns the paragraphs, headings and table rows in the file's order, then footnotes, endnotes and
// comments as notes, then page headers and footers as asides. Text that a recorded change deleted
// is left out.
ReadDocument readWord(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
