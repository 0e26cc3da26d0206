// TIFF orientation: a header's wish to turn the picture, which is read as it is stored.
#pragma once

#include <string>

namespace norvast::extractor {

// Sets the orientation of the first page of the TIFF file in `bytes` to the usual one, since the
// decoder would turn the picture by it (TIFF 6.0, section 2 and tag 274). Changes the bytes in
// place; bytes that are no TIFF file stay as they are.
void dropTiffOrientation(std::string& bytes);

}  // namespace norvast::extractor
