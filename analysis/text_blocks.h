// Text blocks: a text cut where its author cut it, before any sentence is looked for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace norvast {

// Whether a character of ASCII is white space within a line.
constexpr bool isBlank(char character) {
  return character == ' ' || character == '\t' || character == '\r' || character == '\f' ||
         character == '\v';
}

// The runs of other characters between the blanks of a line.
std::vector<std::string_view> wordsBetweenBlanks(std::string_view line);

// The lines of a text, without their line ends.
std::vector<std::string_view> linesOf(std::string_view text);

// Paragraphs, headings and list items, in order: lines that follow each other are one block, joined
// by blanks, with white space collapsed; a blank line ends it, and a line with a mark of its own
// (#, -, *, >, |, 1.) begins a new one and loses the mark.
std::vector<std::string> blocksOf(std::string_view text);

}  // namespace norvast
