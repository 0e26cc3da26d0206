// Spreadsheet reader: the cells of workbooks (xlsx, xlsm, xltx, xltm).
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Sheets in their order, each a part by its name, with its rows: what the cells show, formulas by
// their last result, dates as 2026-03-01. Empty cells are left out. Behind them the texts
// of drawings, and comments as notes.
ReadDocument readSpreadsheet(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
