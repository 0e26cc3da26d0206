// EPUB reader: the chapters of books in that format.
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// The book's title and author, and its pages in reading order. encrypted when they are.
ReadDocument readEpub(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
