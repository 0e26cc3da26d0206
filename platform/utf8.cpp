#include "platform/utf8.h"

#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>

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

// How many bytes from `at` are ASCII, rounded down to whole blocks, which a compiler tests with few
// instructions.
std::size_t asciiRun(std::string_view bytes, std::size_t at) {
  constexpr std::size_t BLOCK = 64;
  std::size_t end = at;
  for (; bytes.size() - end >= BLOCK; end += BLOCK) {
    unsigned char all = 0;
    for (std::size_t byte = 0; byte < BLOCK; ++byte) {
      all = static_cast<unsigned char>(all | static_cast<unsigned char>(bytes[end + byte]));
    }
    if (all >= 0x80) break;
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
    while (at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80) ++at;
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
