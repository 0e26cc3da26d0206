#include "extractor/picture/gray_image.h"

#include <leptonica/allheaders.h>

#include <cstddef>

namespace norvast::extractor {

void DestroyPix::operator()(Pix* image) const { pixDestroy(&image); }

GrayImage grayImage(const char* pixels, int width, int height, int bytesPerRow) {
  GrayImage image(pixCreate(width, height, 8));
  if (!image) return {};
  for (int y = 0; y < height; ++y) {
    const char* row = pixels + static_cast<std::ptrdiff_t>(y) * bytesPerRow;
    l_uint32* line =
        pixGetData(image.get()) + static_cast<std::ptrdiff_t>(y) * pixGetWpl(image.get());
    for (int x = 0; x < width; ++x) SET_DATA_BYTE(line, x, static_cast<l_uint8>(row[x]));
  }
  return image;
}

}  // namespace norvast::extractor
