// First frame: an animation reduced to its beginning, so that decoding it costs one picture.
#pragma once

#include <string>
#include <string_view>

namespace norvast {

// A GIF file (GIF89a) that ends behind its first picture, or `bytes` when no end can be found.
std::string firstGifFrame(std::string_view bytes);

// A WebP file of the first frame of an animated one (RFC 9649), or `bytes` when it is not animated.
std::string firstWebpFrame(std::string_view bytes);

}  // namespace norvast
