#include "platform/utf8.h"

#include <unicode/utf8.h>

#include <algorithm>
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

// How many bytes from `at` are ASCII, rounded down to whole words of eight bytes.
std::size_t asciiRun(std::string_view bytes, std::size_t at) {
  constexpr std::uint64_t HIGH_BITS = 0x8080808080808080U;
  std::size_t end = at;
  std::uint64_t word = 0;
  while (bytes.size() - end >= sizeof word) {
    std::memcpy(&word, bytes.data() + end, sizeof word);
    if ((word & HIGH_BITS) != 0) break;
    end += sizeof word;
  }
  return end - at;
}

}  // namespace

bool isAscii(std::string_view bytes) {
  const std::size_t run = asciiRun(bytes, 0);
  return std::all_of(bytes.begin() + static_cast<std::ptrdiff_t>(run), bytes.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

std::size_t validUtf8Length(std::string_view bytes) {
  std::size_t at = 0;
  for (;;) {
    at += asciiRun(bytes, at);
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

std::string repairUtf8(std::string bytes) {
  std::size_t valid = validUtf8Length(bytes);
  if (valid == bytes.size()) return bytes;

  std::string repaired;
  repaired.reserve(bytes.size() + REPLACEMENT_CHARACTER.size());
  std::string_view rest = bytes;
  while (valid < rest.size()) {
    repaired.append(rest.substr(0, valid)).append(REPLACEMENT_CHARACTER);
    (void)nextCharacter(rest, valid);  // known to be invalid: moves behind it
    rest.remove_prefix(valid);
    valid = validUtf8Length(rest);
  }
  repaired.append(rest);
  return repaired;
}

}  // namespace norvast
