// ASCII: the letters, digits and blanks that formats are made of, whatever the locale.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace norvast {

constexpr bool isAsciiByte(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

constexpr bool isAsciiDigit(char character) { return character >= '0' && character <= '9'; }

constexpr bool isAsciiCapital(char character) { return character >= 'A' && character <= 'Z'; }

constexpr char asciiLowerCase(char character) {
  return isAsciiCapital(character) ? static_cast<char>(character - 'A' + 'a') : character;
}

constexpr bool isAsciiLetter(char character) {
  return asciiLowerCase(character) >= 'a' && asciiLowerCase(character) <= 'z';
}

constexpr bool isAsciiAlphanumeric(char character) {
  return isAsciiLetter(character) || isAsciiDigit(character);
}

// The text with A to Z as a to z, and every other byte as it is.
inline std::string asciiLowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](char character) { return asciiLowerCase(character); });
  return lower;
}

constexpr bool isAsciiSpace(char character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}

// The text without the white space of ASCII around it. A view into `text`.
constexpr std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isAsciiSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && isAsciiSpace(text.back())) text.remove_suffix(1);
  return text;
}

// The texts in one, each two separated by `separator`. Empty ones at the beginning leave no trace.
template <typename Texts>
std::string joined(const Texts& texts, std::string_view separator) {
  std::string all;
  for (const auto& text : texts) {
    if (!all.empty()) all += separator;
    all += text;
  }
  return all;
}

}  // namespace norvast
