// First frame: an animation reduced to its beginning, so that decoding it costs one picture.
#pragma once

#include <string>
#include <string_view>

namespace norvast::extractor {

// The GIF file (GIF89a) ended behind its first picture, whose transparent colour is made white; or
// `bytes` when it has none.
std::string firstGifFrame(std::string_view bytes);

// A WebP file of the first frame of an animated one (RFC 9649), or `bytes` when it is not animated.
std::string firstWebpFrame(std::string_view bytes);

}  // namespace norvast::extractor
