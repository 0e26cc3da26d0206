// Byte order: the numbers in the headers of files, which have one of their own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace norvast {

// The number of `count` bytes (at most 4) at `at`, the most significant first; 0 where there are
// fewer bytes.
constexpr std::uint32_t bigEndianAt(std::string_view bytes, std::size_t at, std::size_t count) {
  if (at > bytes.size() || bytes.size() - at < count) return 0;
  std::uint32_t number = 0;
  for (std::size_t index = at; index < at + count; ++index) {
    number = (number << 8) | static_cast<unsigned char>(bytes[index]);
  }
  return number;
}

// The same, the least significant first.
constexpr std::uint32_t littleEndianAt(std::string_view bytes, std::size_t at, std::size_t count) {
  if (at > bytes.size() || bytes.size() - at < count) return 0;
  std::uint32_t number = 0;
  for (std::size_t index = at + count; index > at; --index) {
    number = (number << 8) | static_cast<unsigned char>(bytes[index - 1]);
  }
  return number;
}

}  // namespace norvast
