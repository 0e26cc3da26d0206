#include "extractor/office/number_format.h"

#include <algorithm>
#include <string>

#include "text/ascii.h"

namespace norvast::extractor {
namespace {

// A code has up to four sections with ";" between them, for numbers above, below and at zero and
// for texts; dates are in the first. Its letters are those of Excel's own codes (ECMA-376-1,
// section 18.8.31):
//   yyyy-mm-dd hh:mm:ss AM/PM    parts of a date
//   [h]:mm                       hours that go on beyond 24
//   "text" \x _x *x              characters that are shown, left as room, or repeated
//   [Red] [$-407] [>100]         a colour, a language, a condition
bool isDatePart(char letter) {
  return std::string_view("ymdhs").find(letter) != std::string_view::npos;
}

// The letters of the parts of a date in the first section, each run of one letter as one; those of
// times that count on, "[h]", in capitals. Texts, colours, conditions and half days are left out.
std::string dateParts(std::string_view code) {
  std::string parts;
  std::size_t at = 0;
  const auto behind = [&](char mark) {
    const std::size_t end = code.find(mark, at + 1);
    return end == std::string_view::npos ? code.size() : end + 1;
  };
  while (at < code.size() && code[at] != ';') {
    const char letter = asciiLowerCase(code[at]);
    if (letter == '"') {
      at = behind('"');
    } else if (letter == '\\' || letter == '_' || letter == '*') {
      at += 2;  // shows the next character, its width, or nothing but it
    } else if (letter == '[') {
      const char counted = at + 1 < code.size() ? asciiLowerCase(code[at + 1]) : ']';
      const std::size_t end = code.find_first_not_of(code.substr(at + 1, 1), at + 1);
      const bool isElapsed = (counted == 'h' || counted == 'm' || counted == 's') &&
                             end < code.size() && code[end] == ']';
      if (isElapsed) parts += static_cast<char>(counted - 'a' + 'A');
      at = behind(']');
    } else if (asciiLowerCase(code.substr(at, 5)) == "am/pm") {
      at += 5;
    } else {
      if (isDatePart(letter) && !parts.ends_with(letter)) parts += letter;
      ++at;
    }
  }
  return parts;
}

// An m between hours and seconds, or beside one of them, is minutes and no month.
bool isMinutes(std::string_view parts, std::size_t at) {
  const char before = at == 0 ? ' ' : asciiLowerCase(parts[at - 1]);
  return before == 'h' || parts.substr(at + 1).starts_with('s');
}

}  // namespace

NumberFormat numberFormat(std::string_view code) {
  const std::string parts = dateParts(code);
  NumberFormat format;
  for (std::size_t at = 0; at < parts.size(); ++at) {
    const char part = parts[at];
    if (part == 'y' || part == 'd' || (part == 'm' && !isMinutes(parts, at))) {
      format.hasDate = true;
    } else {
      format.hasTime = true;
      format.isElapsed = format.isElapsed || isAsciiCapital(part);
      format.hasSeconds = format.hasSeconds || asciiLowerCase(part) == 's';
    }
  }
  return format;
}

// By ECMA-376-1, section 18.8.30: 14 to 17 are dates, 18 to 21 and 45 to 47 times, 22 is both.
NumberFormat builtInNumberFormat(int number) {
  switch (number) {
    case 14:
    case 15:
    case 16:
    case 17:
      return numberFormat("yyyy-mm-dd");
    case 18:
    case 20:
      return numberFormat("h:mm");
    case 19:
    case 21:
    case 45:
    case 47:
      return numberFormat("h:mm:ss");
    case 46:
      return numberFormat("[h]:mm:ss");
    default:
      break;
  }
  // Dates in some languages of East Asia and times in others.
  const bool isLocal = (number >= 27 && number <= 36) || (number >= 50 && number <= 58);
  return isLocal || number == 22 ? numberFormat("yyyy-mm-dd h:mm") : NumberFormat();
}

}  // namespace norvast::extractor
