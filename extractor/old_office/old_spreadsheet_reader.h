// Old spreadsheet reader: the cells of workbooks of Excel 2 to 2003 (xls, xlt).
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Returns the sheets in their order, each a part by its name, with its rows: numbers as shownNumber
// gives them, formulas by their last result. Fails with `encrypted` when a password is needed.
ReadDocument readOldSpreadsheet(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
