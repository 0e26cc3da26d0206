// Stored picture: image files whose header makes the decoder turn or hide what they hold.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace norvast {

// The TIFF file with the orientation of its first page, when it has one, made the usual: the
// decoder turns the picture by it, and a picture is read as it is stored. TIFF 6.0, section 2 and
// tag 274. In place; bytes that are no such file stay as they are.
void dropTiffOrientation(std::string& bytes);

// A PNG file in shades of grey, freed of the chunk that makes one shade transparent. The decoder
// takes such a file for one that is transparent everywhere.
struct GreyPng {
  std::string opaque;
  std::uint8_t transparentShade = 0;  // of 8 bits: 0 is black
};

// Nothing when `bytes` is no such file. W3C, PNG (Third Edition), 5.3 and 11.3.1.1.
std::optional<GreyPng> greyPngWithTransparency(std::string_view bytes);

}  // namespace norvast
