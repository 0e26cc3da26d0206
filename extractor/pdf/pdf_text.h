// PDF text: what a PDF document says, page by page in reading order.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

#include "document/document.h"
#include "document/read_failure.h"

namespace norvast::extractor {

// Loads what pdfText needs of the system's files for every document, before the process gives up
// opening files. What few documents need lies in PDF_DATA_FOLDERS.
void preparePdfText();

// Character maps of Asian fonts. Fonts themselves are for drawing: no text needs them.
inline constexpr std::string_view PDF_DATA_FOLDERS[] = {"/usr/share/poppler"};

// Returns the text of the document in `bytes` as UTF-8: its pages in order with an empty line
// between them, without those that have no text. A longer text is cut to its first `limitClusters`
// user-perceived characters, and pages behind the limit are not read. Returns a reason if the
// document is broken, asks for a password, or has no text. Writes no message.
std::variant<std::string, ReadFailure> pdfText(std::string_view bytes, std::size_t limitClusters);

// Returns the same text as a document: with the title and author that the PDF names, and each page
// as a part "Page 3", followed by its text as one paragraph if it has any.
std::variant<Document, ReadFailure> pdfDocument(std::string_view bytes, std::size_t limitClusters);

}  // namespace norvast::extractor
