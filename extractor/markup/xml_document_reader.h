// XML document reader: the text of XML files of any kind, FictionBook among them.
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Returns the text of all elements in their order, without tags, attributes, comments and entities.
// An element within a text belongs to that paragraph; any other element is a paragraph of its own.
// Elements named "title" are headings, and the first of them is the document's title. Elements
// named "author" or "creator" give the author. Fails with decodingFailed if the bytes are not XML.
ReadDocument readXml(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
