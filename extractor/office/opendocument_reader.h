// OpenDocument reader: the text of office files of that standard (odt, ods, odp, odg, their
// templates, and their flat forms in one XML text).
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Returns the paragraphs, headings and table rows in the file's order. Each sheet is a part with
// its name, each slide a part with its number. Footnotes, comments and speaker's notes are notes,
// where they stand; tables of contents are asides. Text that a recorded change deleted is left out.
ReadDocument readOpenDocument(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
