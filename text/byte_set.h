// Byte set: a few bytes that a text is searched for, with one look-up for each byte of the text.
// The searches of std::string_view go through the list for each of them.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace norvast {

class ByteSet {
 public:
  constexpr explicit ByteSet(std::string_view bytes) {
    for (const char byte : bytes) holds_[static_cast<unsigned char>(byte)] = true;
  }

  constexpr bool contains(char byte) const { return holds_[static_cast<unsigned char>(byte)]; }

  constexpr bool isIn(std::string_view text) const { return firstIn(text) < text.size(); }

  // Where the first byte of the set is; the size of the text when there is none.
  constexpr std::size_t firstIn(std::string_view text) const {
    std::size_t at = 0;
    while (at < text.size() && !contains(text[at])) ++at;
    return at;
  }

 private:
  std::array<bool, 256> holds_{};
};

}  // namespace norvast
