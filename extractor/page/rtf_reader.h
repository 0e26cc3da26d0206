// RTF reader: the text of Rich Text Format files. Debian has programs for that, but no library that
// could read inside the lock.
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Paragraphs, headings and table rows in their order, footnotes as notes, page headers and footers
// as asides; title and author from the file's properties. Pictures, embedded objects, field codes
// and all destinations that are not known are left out. Text is decoded by the code page of its
// font. decodingFailed for what does not begin as RTF does, tooLarge for groups too deep.
ReadDocument readRtf(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
