// First frame: an animation reduced to its beginning, so that decoding it costs one picture.
#pragma once

#include <string>
#include <string_view>

namespace norvast::extractor {

// Returns a GIF file (GIF89a) that ends behind the first picture of the one in `bytes`, with the
// transparent colour made white. Returns `bytes` if they hold no picture.
std::string firstGifFrame(std::string_view bytes);

// Returns a WebP file (RFC 9649) that holds the first frame of the animated one in `bytes`. Returns
// `bytes` if they are not animated.
std::string firstWebpFrame(std::string_view bytes);

}  // namespace norvast::extractor
