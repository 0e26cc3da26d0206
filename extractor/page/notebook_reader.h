// Notebook reader: what is written in, and came out of, the cells of Jupyter notebooks (ipynb).
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Returns the cells in their order: texts by paragraphs, their Markdown headings as headings, code
// as it stands, and what it printed. Pictures are left out. Fails with decodingFailed if the bytes
// are no notebook.
ReadDocument readNotebook(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
