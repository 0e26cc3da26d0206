// RTF reader: the text of Rich Text Format files. Debian has programs for that, but no library that
// could read inside the lock.
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Returns the paragraphs, headings and table rows in their order, with the title and author from
// the file's properties. Footnotes are notes, page headers and footers are asides. Pictures,
// embedded objects, field codes and unknown destinations are left out. Text is decoded by the code
// page of its font. Fails with decodingFailed if the bytes do not begin as RTF does, and with
// tooLarge if groups are nested deeper than MOST_RTF_DEPTH.
ReadDocument readRtf(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
