// Roff table: the rows of a table in a roff text (tbl(1)).
#pragma once

#include "extractor/document_builder.h"
#include "extractor/roff_lines.h"

namespace norvast {

// Adds the table whose first line `lines` has given, and goes on behind its end. What says how it
// looks is left out.
void addRoffTable(RoffLines& lines, DocumentBuilder& document);

}  // namespace norvast
