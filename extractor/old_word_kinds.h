// Old word kinds: the readers of Word's files before 2007, and of files that may be such. They have
// a program of their own: the library that reads them brings a dozen others.
#pragma once

#include <string_view>

#include "extractor/document_kinds.h"

namespace norvast {

// The kind of that name ("old-word", or "old-office" for any kind of the older office programs), or
// nullptr.
const DocumentKind* oldWordKind(std::string_view name);

}  // namespace norvast
