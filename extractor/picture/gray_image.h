// Grey image: one decoded picture in 8-bit shades of grey, 0 black to 255 white.
#pragma once

#include <memory>

struct Pix;

namespace norvast::extractor {

struct DestroyPix {
  void operator()(Pix* image) const;
};

// Owns an image of Leptonica's, with 8 bits a pixel and without a palette. A parameter of this type
// is never null; a result may be where the function says so.
using GrayImage = std::unique_ptr<Pix, DestroyPix>;

// Returns a copy of a picture in memory that has one byte a pixel, from the upper left on, and
// `bytesPerRow` bytes from one row to the next. Returns null if it is too large or has no pixels.
GrayImage grayImage(const char* pixels, int width, int height, int bytesPerRow);

}  // namespace norvast::extractor
