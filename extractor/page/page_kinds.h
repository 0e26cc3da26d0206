// Page kinds: the readers of texts with marks in them. They have a program of their own, which does
// not load what unpacks the other documents: that took longer than to read a page.
#pragma once

#include <string_view>

#include "extractor/program/document_kind.h"

namespace norvast::extractor {

// Returns the kind of that name ("html", "xml", "rtf", "notebook", "manual"), or nullptr.
const DocumentKind* pageKind(std::string_view name);

}  // namespace norvast::extractor
