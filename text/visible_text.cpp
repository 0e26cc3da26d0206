#include "text/visible_text.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <array>
#include <cstdint>
#include <cstdio>

namespace norvast {
namespace {

constexpr std::string_view REPLACEMENT_CHARACTER = "\xEF\xBF\xBD";

bool isHidden(UChar32 scalar) {
  switch (u_charType(scalar)) {
    case U_CONTROL_CHAR:
    case U_LINE_SEPARATOR:
    case U_PARAGRAPH_SEPARATOR:
      return true;
    case U_FORMAT_CHAR:  // all but signs that enclose the digits behind them
      return !u_hasBinaryProperty(scalar, UCHAR_PREPENDED_CONCATENATION_MARK);
    default:
      return u_hasBinaryProperty(scalar, UCHAR_DEFAULT_IGNORABLE_CODE_POINT) != 0 &&
             u_hasBinaryProperty(scalar, UCHAR_VARIATION_SELECTOR) == 0;
  }
}

// The text with each scalar that is hidden, or negative where bytes are no UTF-8, replaced by what
// `instead` makes of it and its bytes.
template <typename Instead>
std::string mapped(std::string_view text, Instead instead) {
  std::string result;
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  const auto length = static_cast<std::int64_t>(text.size());
  for (std::int64_t at = 0; at < length;) {
    const std::int64_t start = at;
    UChar32 scalar = 0;
    U8_NEXT(bytes, at, length, scalar);
    const auto part =
        text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(at - start));
    if (scalar < 0 || isHidden(scalar)) {
      result += instead(scalar, part);
    } else {
      result += part;
    }
  }
  return result;
}

// One unit of UTF-16 as \uXXXX (RFC 8259, section 7).
std::string escaped(UChar unit) {
  std::array<char, sizeof "\\uXXXX"> text{};
  (void)std::snprintf(text.data(), text.size(), "\\u%04x", static_cast<unsigned>(unit));
  return text.data();
}

std::string jsonEscape(UChar32 scalar) {
  if (U_IS_BMP(scalar)) return escaped(static_cast<UChar>(scalar));
  return escaped(U16_LEAD(scalar)) + escaped(U16_TRAIL(scalar));
}

}  // namespace

std::string visibleText(std::string_view text) {
  return mapped(text, [](UChar32, std::string_view) { return std::string(REPLACEMENT_CHARACTER); });
}

std::string visibleJson(std::string_view json) {
  return mapped(json, [](UChar32 scalar, std::string_view bytes) {
    if (scalar == '\n') return std::string(bytes);
    return scalar < 0 ? std::string(REPLACEMENT_CHARACTER) : jsonEscape(scalar);
  });
}

}  // namespace norvast
