#include "extractor/picture/shaded_png.h"

#include <leptonica/allheaders.h>
#include <png.h>

#include <cstddef>
#include <memory>

namespace norvast::extractor {
namespace {

// Where the first chunk says of which kind the picture is, and the kind that has shades alone.
constexpr std::size_t COLOUR_TYPE_AT = 25;

struct FreePng {
  void operator()(png_image* picture) const { png_image_free(picture); }
};

}  // namespace

std::optional<GrayImage> decodeShadedPng(std::string_view bytes) {
  if (bytes.size() <= COLOUR_TYPE_AT || bytes[COLOUR_TYPE_AT] != PNG_COLOR_TYPE_GRAY) return {};
  png_image picture{};
  picture.version = PNG_IMAGE_VERSION;
  const std::unique_ptr<png_image, FreePng> owned(&picture);
  if (png_image_begin_read_from_memory(&picture, bytes.data(), bytes.size()) == 0 ||
      picture.format != PNG_FORMAT_GA) {
    return std::nullopt;
  }
  picture.format = PNG_FORMAT_GRAY;
  // Shades of 16 bits, too, are as a screen shows them, unless the file says otherwise.
  picture.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;
  constexpr png_color WHITE = {255, 255, 255};
  GrayImage image(
      pixCreate(static_cast<l_int32>(picture.width), static_cast<l_int32>(picture.height), 8));
  if (!image) return std::nullopt;
  const png_int_32 bytesALine = pixGetWpl(image.get()) * 4;
  if (png_image_finish_read(&picture, &WHITE, pixGetData(image.get()), bytesALine, nullptr) == 0) {
    return std::nullopt;
  }
  (void)pixEndianByteSwap(image.get());  // Leptonica's lines are made of whole words
  return image;
}

}  // namespace norvast::extractor
