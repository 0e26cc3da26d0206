// Scanned document: a PDF document as the index keeps it, with the text of pages that are pictures.
#pragma once

#include <cstddef>
#include <string>
#include <variant>

#include "document/document.h"
#include "document/read_failure.h"
#include "platform/regular_file.h"

namespace norvast {

// The document with title and author and each page that has a text as a part. Pages without one are
// recognised, so far as the bounds on pages and time allow, with the recogniser's models of these
// names ("eng", or several as "deu+eng"). Takes minutes at the most.
std::variant<Document, ReadFailure> pdfWithScannedPages(const RegularFile& file,
                                                        std::size_t limitClusters,
                                                        const std::string& languages);

}  // namespace norvast
