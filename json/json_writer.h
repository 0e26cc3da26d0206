// JSON writing: one value as text, in the styles of the protocol's lines, the tools' answers and
// what a person copies.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "json/json.h"

namespace norvast {

enum class JsonStyle {
  compact,  // no white space at all
  pretty,   // a member or element a line, two blanks a level, "key" : value; [] and {} when empty
  legible,  // as pretty, with the solidus as it is: for a person to copy
};

// Appends a string, which is UTF-8, with its quotation marks. In it the quotation mark, the
// backslash, the solidus unless it is to stand plain, and U+0000 to U+001F are escaped, all else
// stands as it is.
enum class Solidus { escaped, plain };
void appendJsonString(std::string& text, std::string_view value,
                      Solidus solidus = Solidus::escaped);

// The text of `value` as UTF-8, strings as above, members in ascending order of their keys. A
// double is written with the fewest digits that read back as itself. Nothing when a number in it is
// NaN or infinite.
std::optional<std::string> writeJson(const Json& value, JsonStyle style);

}  // namespace norvast
