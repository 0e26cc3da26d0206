// TIFF orientation: a header's wish to turn the picture, which is read as it is stored.
#pragma once

#include <string>

namespace norvast::extractor {

// The TIFF file with the orientation of its first page, when it has one, made the usual: the
// decoder turns the picture by it. TIFF 6.0, section 2 and tag 274. In place; bytes that are no
// such file stay as they are.
void dropTiffOrientation(std::string& bytes);

}  // namespace norvast::extractor
