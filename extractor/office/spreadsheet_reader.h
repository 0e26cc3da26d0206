// Spreadsheet reader: the cells of workbooks (xlsx, xlsm, xltx, xltm).
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Returns the sheets in their order. Each is a part with its name and its rows: what the cells
// show, the last result of a formula, dates as 2026-03-01, without empty cells. The texts of
// drawings follow, and comments as notes.
ReadDocument readSpreadsheet(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
