// HTML reader: the text of web pages, saved pages and mails, however they are written.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Headings, paragraphs, list items, table rows; the page's title and author. Scripts, styles and
// what is hidden are left out; navigation, page headers and footers, and paragraphs that are
// links for the most part are asides. The encoding is what the page says, else what it looks like.
// decodingFailed for bytes that are no text, tooLarge for elements beyond MOST_HTML_DEPTH.
ReadDocument readHtml(std::string_view bytes, std::size_t limitCharacters);

// Adds the blocks of a page to a document that has others, and sets the title and author that it
// does not have. `encoding` counts before what the page says; it may be empty. Nothing when the
// page could be read, even if it is empty.
std::optional<ReadFailure> addHtml(std::string_view bytes, const std::string& encoding,
                                   DocumentBuilder& document);

}  // namespace norvast::extractor
