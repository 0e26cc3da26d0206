// HEIF decoding: the primary picture of a HEIC or HEIF file in shades of grey.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "extractor/picture/gray_image.h"

namespace norvast::extractor {

// Loads the decoders that are installed as files of their own.
void prepareHeifDecoding();

// True if `bytes` begin as a file that decodeHeif can read does.
bool isHeif(std::string_view bytes);

// Returns the primary picture, turned and cropped as the file says. Transparent pixels are white.
// Returns nothing if it cannot be decoded.
std::optional<GrayImage> decodeHeif(std::string_view bytes);

// Returns the EXIF fields of the primary picture, as photoSentence takes them, empty if it has
// none.
std::string heifExif(std::string_view bytes);

}  // namespace norvast::extractor
