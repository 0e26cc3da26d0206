// Image decoding: the first picture of an image file in shades of grey.
#pragma once

#include <optional>
#include <string_view>

#include "extractor/picture/gray_image.h"

namespace norvast::extractor {

// Loads what decodeImage needs of the system's files, for a process that gives up opening files.
void prepareImageDecoding();

// The first page or frame of the PNG, JPEG, TIFF, GIF, BMP, WebP, HEIC or HEIF file in `bytes`,
// whichever they are, as it is stored: a rotation that its EXIF data or its TIFF header ask for is
// not made. What is transparent shows white. Nothing when the bytes are no such image or it does
// not fit the memory. Writes no message.
std::optional<GrayImage> decodeImage(std::string_view bytes);

}  // namespace norvast::extractor
