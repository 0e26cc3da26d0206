// Notebook reader: what is written in, and came out of, the cells of Jupyter notebooks (ipynb).
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Cells in their order: texts by their paragraphs, their Markdown headings as headings, code as it
// is, and what it printed. Pictures are left out. decodingFailed when it is no notebook.
ReadDocument readNotebook(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
