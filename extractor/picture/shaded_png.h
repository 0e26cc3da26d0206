// Shaded PNG: pictures in shades of grey, one of which is transparent.
#pragma once

#include <optional>
#include <string_view>

#include "extractor/picture/gray_image.h"

namespace norvast::extractor {

// The picture of a PNG file of that kind, laid over white; Leptonica takes such a file for one that
// is transparent everywhere. Nothing when the bytes are no such file, are damaged, or do not fit
// the memory. W3C, PNG (Third Edition), 11.2.1 and 11.3.1.1.
std::optional<GrayImage> decodeShadedPng(std::string_view bytes);

}  // namespace norvast::extractor
