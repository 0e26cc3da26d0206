// Grey image: one decoded picture in 8-bit shades of grey, 0 black to 255 white.
#pragma once

#include <memory>

struct Pix;

namespace norvast::extractor {

struct DestroyPix {
  void operator()(Pix* image) const;
};

// Owns an image of Leptonica's, of 8 bits a pixel and without a palette. Never null where one is
// passed or returned without std::optional around it.
using GrayImage = std::unique_ptr<Pix, DestroyPix>;

// A copy of a picture in memory, a byte a pixel from the upper left on, with `bytesPerRow` from one
// row to the next. Null when it is too large or has no pixels.
GrayImage grayImage(const char* pixels, int width, int height, int bytesPerRow);

}  // namespace norvast::extractor
