// Image decoding: the first picture of an image file in shades of grey.
#pragma once

#include <optional>
#include <string_view>

#include "extractor/picture/gray_image.h"

namespace norvast::extractor {

// Loads what decodeImage needs of the system's files, before the process gives up opening files.
void prepareImageDecoding();

// Returns the first page or frame of the PNG, JPEG, TIFF, GIF, BMP, WebP, HEIC or HEIF file in
// `bytes`. It is given as it is stored: a rotation that its EXIF data or its TIFF header ask for is
// not made. Transparent pixels are white. Returns nothing if the bytes are no such image or if it
// does not fit the memory. Writes no message.
std::optional<GrayImage> decodeImage(std::string_view bytes);

}  // namespace norvast::extractor
