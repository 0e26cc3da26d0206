// Office kinds: the readers of today's office files, of books and of what is packed.
#pragma once

#include <string_view>

#include "extractor/program/document_kind.h"

namespace norvast::extractor {

// Returns the kind of that name ("word", "spreadsheet", "presentation", "opendocument", "epub",
// "packed"), or nullptr. Texts with marks (pageKind), mails (mailKind) and the files of older
// programs (oldOfficeKind) have tables of their own: loading what reads each of them takes longer
// than reading most files.
const DocumentKind* officeKind(std::string_view name);

}  // namespace norvast::extractor
