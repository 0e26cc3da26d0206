// ASCII: the letters, digits and blanks that formats are made of, whatever the locale.
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

// The text without the white space of ASCII around it. A view into `text`.
constexpr std::string_view trimmed(std::string_view text) {
  constexpr std::string_view BLANKS = " \t\r\n\f\v";
  const std::size_t first = text.find_first_not_of(BLANKS);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(BLANKS) - first + 1);
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
