#include "text/visible_text.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <cstdint>

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

}  // namespace

std::string visibleText(std::string_view text) {
  std::string visible;
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  const auto length = static_cast<std::int64_t>(text.size());
  for (std::int64_t at = 0; at < length;) {
    const std::int64_t start = at;
    UChar32 scalar = 0;
    U8_NEXT(bytes, at, length, scalar);
    if (scalar < 0 || isHidden(scalar)) {
      visible += REPLACEMENT_CHARACTER;
    } else {
      visible += text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(at - start));
    }
  }
  return visible;
}

}  // namespace norvast
