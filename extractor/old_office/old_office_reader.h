// Old office reader: the text of files of older office programs whose names do not say which.
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// To be called once, before the process gives up opening files.
void prepareOldOffice();

// What the reader of its kind makes of the file; that shows in the names of its streams. noReader
// when it is of none of them, encrypted when the file in it is.
ReadDocument readOldOffice(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
