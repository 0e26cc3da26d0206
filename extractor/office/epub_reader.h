// EPUB reader: the chapters of books in that format.
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Returns the book's title and author, and its pages in reading order. Fails with encrypted if the
// pages are encrypted.
ReadDocument readEpub(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
