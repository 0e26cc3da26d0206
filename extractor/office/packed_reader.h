// Packed reader: compressed texts, and archives, which stay closed but for their files' names.
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Loads what reading needs of the system's files, before the process gives up opening files.
void preparePacked();

// For one compressed text (gz, bz2, xz, zst), returns the text, at most MOST_PART_BYTES of it. For
// an archive (zip, tar, 7z, rar, iso, cab, ar, cpio), compressed or not, returns the names of its
// files, one a line. Fails with noReader for anything else that is compressed.
ReadDocument readPacked(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
