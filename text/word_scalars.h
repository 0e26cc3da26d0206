// Word scalars: a text folded for comparing words, and of which kind each of its scalars is.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/ascii.h"

namespace norvast {

// The text without its compatibility distinctions and combining marks, as scalars: compatibility
// decomposition (NFKD, UAX #15), marks dropped, recomposed (NFC). Invalid UTF-8 becomes U+FFFD. The
// time is linear in the length.
std::u32string foldedScalars(std::string_view text);

// An ideograph is any character of the Han, Hiragana, Katakana or Hangul scripts (UAX #24).
enum class ScalarKind : std::uint8_t { separator, small, capital, otherLetter, digit, ideograph };
ScalarKind kindBeyondAscii(char32_t scalar);
inline ScalarKind scalarKindOf(char32_t scalar) {
  if (scalar >= 0x80) return kindBeyondAscii(scalar);
  const auto character = static_cast<char>(scalar);
  if (isAsciiLetter(character)) {
    return isAsciiCapital(character) ? ScalarKind::capital : ScalarKind::small;
  }
  return isAsciiDigit(character) ? ScalarKind::digit : ScalarKind::separator;
}

// The scalars in lower case, by the default mapping of no language, as UTF-8.
std::string lowerCased(std::u32string_view scalars);

}  // namespace norvast
