// Workbook cells: what the cells in one sheet of an old workbook show.
#pragma once

#include <string_view>

#include "document/document_builder.h"
#include "extractor/old_office/workbook_globals.h"

namespace norvast::extractor {

// Adds the rows of the sheet with these records, in the order of rows and columns, whatever the
// order of the records. Errors, charts in the sheet, and all that is not in a cell are left out. Of
// more than MOST_TABLE_ENTRIES cells it takes the first.
void addSheetRows(std::string_view records, const WorkbookGlobals& globals,
                  DocumentBuilder& document);

}  // namespace norvast::extractor
