// Packed reader: compressed texts, and archives, which stay closed but for their files' names.
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Loads what reading needs of the system's files, for a process that gives up opening them.
void preparePacked();

// Of one compressed text (gz, bz2, xz, zst): the text, at most MOST_PART_BYTES of it. Of an archive
// (zip, tar, 7z, rar, iso, cab, ar, cpio), compressed or not: the names of its files, one a line.
// noReader for anything else that is compressed.
ReadDocument readPacked(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
