// HEIF decoding: the primary picture of a HEIC or HEIF file in shades of grey.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "extractor/picture/gray_image.h"

namespace norvast::extractor {

// Loads the decoders that are installed as files of their own.
void prepareHeifDecoding();

// True when `bytes` begin as a file that decodeHeif can read.
bool isHeif(std::string_view bytes);

// The primary picture, transformed as the file itself says. What is transparent shows white.
// Nothing when it cannot be decoded.
std::optional<GrayImage> decodeHeif(std::string_view bytes);

// The EXIF fields of the primary picture, as photoSentence takes them; empty when it has none.
std::string heifExif(std::string_view bytes);

}  // namespace norvast::extractor
