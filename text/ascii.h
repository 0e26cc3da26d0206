// ASCII: the letters and digits that formats are made of, whatever the locale.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace norvast {

constexpr bool isAsciiDigit(char character) { return character >= '0' && character <= '9'; }

constexpr bool isAsciiCapital(char character) { return character >= 'A' && character <= 'Z'; }

constexpr char asciiLowerCase(char character) {
  return isAsciiCapital(character) ? static_cast<char>(character - 'A' + 'a') : character;
}

// The text with A to Z as a to z, and every other byte as it is.
inline std::string asciiLowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](char character) { return asciiLowerCase(character); });
  return lower;
}

}  // namespace norvast
