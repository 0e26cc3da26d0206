// Lines: the lines of a text, and the words between their blanks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace norvast::indexer {

// Whether a character of ASCII is white space within a line.
constexpr bool isBlank(char character) {
  return character == ' ' || character == '\t' || character == '\r' || character == '\f' ||
         character == '\v';
}

// The runs of other characters between the blanks of a line.
std::vector<std::string_view> wordsBetweenBlanks(std::string_view line);

// The lines of a text, without their line ends and the blanks around them.
std::vector<std::string_view> linesOf(std::string_view text);

// What a mark of its own (#, -, *, >, |, //, 1.) takes at the beginning of a trimmed line, the
// blanks behind it included; all of a line that is only ruled. 0 when it has none.
std::size_t markLength(std::string_view line);

// The lines of a text on one line: without their marks, joined by blanks, white space collapsed.
std::string onOneLine(std::string_view text);

}  // namespace norvast::indexer
