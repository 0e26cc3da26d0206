// Shaded PNG: pictures in shades of grey, one of which is transparent.
#pragma once

#include <optional>
#include <string_view>

#include "extractor/picture/gray_image.h"

namespace norvast::extractor {

// Returns the picture of such a PNG file, laid over white: Leptonica takes the file for one that is
// transparent everywhere. Returns nothing if the bytes are no such file, are damaged, or do not fit
// the memory. Source: W3C, PNG (Third Edition), 11.2.1 and 11.3.1.1.
std::optional<GrayImage> decodeShadedPng(std::string_view bytes);

}  // namespace norvast::extractor
