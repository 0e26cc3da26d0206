// Old office kinds: the readers of Excel's and PowerPoint's files before 2007, which have a program
// of their own: a library takes fopen and iconv for itself.
#pragma once

#include <string_view>

#include "extractor/document_kinds.h"

namespace norvast {

// The kind of that name ("old-spreadsheet", "old-presentation"), or nullptr.
const DocumentKind* oldOfficeKind(std::string_view name);

}  // namespace norvast
