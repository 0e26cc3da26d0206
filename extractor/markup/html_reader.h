// HTML reader: the text of web pages, saved pages and mails, however they are written.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Returns the headings, paragraphs, list items and table rows of a page, with its title and author.
// Scripts, styles and hidden elements are left out. Navigation, page headers and footers, and
// paragraphs that consist mostly of links are asides. The encoding is the one that the page names,
// else the one that its bytes look like. Fails with decodingFailed if the bytes are no text, and
// with tooLarge if elements are nested deeper than MOST_HTML_DEPTH.
ReadDocument readHtml(std::string_view bytes, std::size_t limitCharacters);

// Adds the blocks of a page to the document, and sets its title and author if it has none yet. If
// `encoding` is not empty, it counts more than the one that the page names. Returns nothing if the
// page could be read, even if it is empty, else the reason.
std::optional<ReadFailure> addHtml(std::string_view bytes, const std::string& encoding,
                                   DocumentBuilder& document);

}  // namespace norvast::extractor
