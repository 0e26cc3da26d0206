// Old office kinds: the readers of the files of older office programs, which have a program of
// their own: one of their libraries is old.
#pragma once

#include <string_view>

#include "extractor/program/document_kind.h"

namespace norvast::extractor {

// The kind of that name ("old-word", "old-spreadsheet", "old-presentation", "old-mail", or
// "old-office" for any of them), or nullptr.
const DocumentKind* oldOfficeKind(std::string_view name);

}  // namespace norvast::extractor
