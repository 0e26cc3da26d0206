#include "text/utf8.h"

#include <unicode/utf8.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace norvast {
namespace {

constexpr std::string_view REPLACEMENT_CHARACTER = "\xEF\xBF\xBD";

// Moves `at` behind the next character, or behind the maximal invalid part there. True when valid.
bool nextCharacter(std::string_view bytes, std::size_t& at) {
  const auto* units = reinterpret_cast<const std::uint8_t*>(bytes.data());
  UChar32 character = 0;
  U8_NEXT(units, at, bytes.size(), character);
  return character >= 0;
}

// Moves `at` to the first byte from there that is not ASCII, or to the end, eight bytes at a time.
void skipAscii(std::string_view bytes, std::size_t& at) {
  std::uint64_t word = 0;
  for (; bytes.size() - at >= sizeof word; at += sizeof word) {
    std::memcpy(&word, bytes.data() + at, sizeof word);
    word &= 0x8080808080808080;
    if (word == 0) continue;
    constexpr bool IS_LITTLE = std::endian::native == std::endian::little;
    at += static_cast<std::size_t>(IS_LITTLE ? std::countr_zero(word) : std::countl_zero(word)) / 8;
    return;
  }
  while (at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80) ++at;
}

}  // namespace

bool isAscii(std::string_view bytes) {
  std::size_t at = 0;
  skipAscii(bytes, at);
  return at == bytes.size();
}

std::size_t validUtf8Length(std::string_view bytes) {
  for (std::size_t at = 0;;) {
    skipAscii(bytes, at);
    if (at == bytes.size()) return at;
    const std::size_t start = at;
    if (!nextCharacter(bytes, at)) return start;
  }
}

bool isCutCharacter(std::string_view bytes) {
  if (bytes.empty()) return false;
  const int expected = U8_COUNT_TRAIL_BYTES(static_cast<std::uint8_t>(bytes.front()));
  if (expected == 0 || bytes.size() > static_cast<std::size_t>(expected)) return false;
  // A character's valid beginning is one maximal invalid part, and nothing follows it.
  std::size_t at = 0;
  return !nextCharacter(bytes, at) && at == bytes.size();
}

std::string_view firstBytes(std::string_view utf8, std::size_t limit) {
  std::size_t end = std::min(limit, utf8.size());
  while (end < utf8.size() && end > 0 && (static_cast<unsigned char>(utf8[end]) & 0xC0) == 0x80) {
    --end;
  }
  return utf8.substr(0, end);
}

void appendUtf8(std::string& text, char32_t scalar) {
  const auto byte = [&text](char32_t bits) { text += static_cast<char>(bits); };
  if (scalar < 0x80) return byte(scalar);
  if (scalar < 0x800) {
    byte(0xC0 | (scalar >> 6));
  } else {
    if (scalar < 0x10000) {
      byte(0xE0 | (scalar >> 12));
    } else {
      byte(0xF0 | (scalar >> 18));
      byte(0x80 | ((scalar >> 12) & 0x3F));
    }
    byte(0x80 | ((scalar >> 6) & 0x3F));
  }
  byte(0x80 | (scalar & 0x3F));
}

std::string_view firstCharacter(std::string_view text) {
  std::size_t length = std::min<std::size_t>(text.size(), 1);
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) {
    ++length;
  }
  return text.substr(0, length);
}

std::string repairUtf8(std::string bytes) {
  if (validUtf8Length(bytes) == bytes.size()) return bytes;
  std::string repaired;
  repaired.reserve(bytes.size() + REPLACEMENT_CHARACTER.size());
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t start = at;
    const bool isValid = nextCharacter(bytes, at);
    repaired.append(isValid ? std::string_view(bytes).substr(start, at - start)
                            : REPLACEMENT_CHARACTER);
  }
  return repaired;
}

}  // namespace norvast
