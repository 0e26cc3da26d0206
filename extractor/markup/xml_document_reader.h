// XML document reader: the text of XML files of any kind, FictionBook among them.
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// The text of all elements in their order, without tags, attributes, comments and entities: an
// element that stands within a text belongs to its paragraph, any other is one of its own. Elements
// named title are headings, the first one is the document's title, and one named author, or its
// name, says who wrote it. decodingFailed where it is no XML.
ReadDocument readXml(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
