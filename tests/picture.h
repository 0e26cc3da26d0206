// Picture: text drawn and encoded for tests of image reading.
#pragma once

#include <string>
#include <vector>

#include "extractor/gray_image.h"

struct Pix;

namespace norvast {

// Owns an image of any depth.
using Picture = GrayImage;

// Black lines on white, 8 bits, in a built-in typeface of `points` (4 to 20, even): the lower case
// letters of 4 are 8 pixels high.
Picture drawnText(const std::vector<std::string>& lines, int points = 10);

// The file of an image in one of Leptonica's formats (IFF_PNG and so on).
std::string encoded(const Picture& picture, int format);

// The same, black where the picture is dark, and else transparent black.
Picture onTransparency(const Picture& picture);

// A GIF animation that begins with the picture, its white made transparent black, and goes on with
// `rest` in place of further pictures.
std::string gifAnimation(const Picture& picture, const std::string& rest);

// A WebP animation of two frames: these.
std::string webpAnimation(const Picture& first, const Picture& second);

}  // namespace norvast
