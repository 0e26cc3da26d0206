// Roff table: the rows of a table in a roff text (tbl(1)).
#pragma once

#include <optional>

#include "document/document_builder.h"
#include "extractor/manual/roff_lines.h"

namespace norvast::extractor {

// Adds the table whose first line `lines` has given; the line that ends it: its own, or that of a
// section. What says how it looks is left out.
std::optional<RoffLine> addRoffTable(RoffLines& lines, DocumentBuilder& document);

}  // namespace norvast::extractor
