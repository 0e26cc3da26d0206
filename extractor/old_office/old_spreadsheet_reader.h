// Old spreadsheet reader: the cells of workbooks of Excel 5 to 2003 (xls, xlt).
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// To be called once, before the process gives up opening files.
void prepareOldSpreadsheet();

// Sheets in their order, each a part by its name, with its rows: values, formulas by their last
// result, dates as 2026-03-01 where the cell's format is one of the program's own.
ReadDocument readOldSpreadsheet(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
