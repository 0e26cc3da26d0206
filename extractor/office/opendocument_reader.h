// OpenDocument reader: the text of office files of that standard (odt, ods, odp, odg, their
// templates, and their flat forms in one XML text).
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Paragraphs, headings and table rows in the file's order; sheets by their names and slides by
// their numbers as parts; footnotes, comments and speaker's notes as notes where they stand; tables
// of contents as asides. Text that was deleted, with changes recorded, is left out.
ReadDocument readOpenDocument(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
