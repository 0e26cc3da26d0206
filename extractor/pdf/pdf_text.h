// PDF text: what a PDF document says, page by page in reading order.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

#include "document/document.h"
#include "document/read_failure.h"

namespace norvast::extractor {

// Loads what pdfText needs of the system's files at every document, for a process that gives up
// opening files. What it may need besides, for the odd document, lies in PDF_DATA_FOLDERS.
void preparePdfText();

// Character maps of Asian fonts. Fonts themselves are for drawing: no text needs them.
inline constexpr std::string_view PDF_DATA_FOLDERS[] = {"/usr/share/poppler"};

// The text of the document in `bytes` as UTF-8, pages in their order with an empty line between
// them, those without text left out: whole, or at least its first `limitClusters` user-perceived
// characters and exactly them when it is longer. No page is looked at once that much is known.
// A reason when the document is broken, asks for a password, or has no text. Writes no message.
std::variant<std::string, ReadFailure> pdfText(std::string_view bytes, std::size_t limitClusters);

// The same text as the index keeps it: title and author as the document names them, each page as a
// part "Page 3" with its text, if it has any, as one paragraph behind it.
std::variant<Document, ReadFailure> pdfDocument(std::string_view bytes, std::size_t limitClusters);

}  // namespace norvast::extractor
