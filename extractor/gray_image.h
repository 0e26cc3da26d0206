// Grey image: one decoded picture in 8-bit shades of grey, 0 black to 255 white.
#pragma once

#include <memory>

struct Pix;

namespace norvast {

struct DestroyPix {
  void operator()(Pix* image) const;
};

// Owns an image of Leptonica's, of 8 bits a pixel and without a palette. Never null where one is
// passed or returned without std::optional around it.
using GrayImage = std::unique_ptr<Pix, DestroyPix>;

}  // namespace norvast
