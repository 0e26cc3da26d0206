// Picture: text drawn and encoded for measuring how images are read.
#pragma once

#include <string>
#include <vector>

#include "extractor/picture/gray_image.h"

struct Pix;

namespace norvast {
using namespace extractor;

// Owns an image of any depth.
using Picture = GrayImage;

// Black lines on white, 8 bits, in a built-in typeface of `points` (4 to 20, even): the lower case
// letters of 4 are 8 pixels high.
Picture drawnText(const std::vector<std::string>& lines, int points = 10);

// The file of an image in one of Leptonica's formats (IFF_PNG and so on).
std::string encoded(const Picture& picture, int format);

}  // namespace norvast
