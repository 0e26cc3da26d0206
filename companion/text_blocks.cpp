#include "companion/text_blocks.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace norvast {
namespace {

constexpr std::string_view BLANKS = " \t\r\f\v";

bool isDigit(char character) { return character >= '0' && character <= '9'; }

// The line behind its mark, and whether it had one.
std::pair<std::string_view, bool> withoutMark(std::string_view line) {
  const std::size_t mark = line.find_first_not_of("#-*>|+=_");
  if (mark == std::string_view::npos) return {{}, true};  // a rule
  if (mark > 0 && BLANKS.find(line[mark]) != std::string_view::npos) {
    return {line.substr(line.find_first_not_of(BLANKS, mark)), true};
  }
  std::size_t digits = 0;
  while (digits < line.size() && isDigit(line[digits])) ++digits;
  if (digits > 0 && digits < 4 && line.substr(digits).starts_with(". ")) {
    return {line.substr(digits + 2), true};
  }
  return {line, false};
}

void appendCollapsed(std::string& block, std::string_view line) {
  for (std::size_t at = line.find_first_not_of(BLANKS); at != std::string_view::npos;
       at = line.find_first_not_of(BLANKS, at)) {
    const std::size_t end = std::min(line.find_first_of(BLANKS, at), line.size());
    if (!block.empty()) block += ' ';
    block.append(line.substr(at, end - at));
    at = end;
  }
}

std::string_view trimmed(std::string_view line) {
  const std::size_t first = line.find_first_not_of(BLANKS);
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(BLANKS) - first + 1);
}

}  // namespace

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    lines.push_back(trimmed(text.substr(start, end - start)));
    start = end + 1;
  }
  return lines;
}

std::vector<std::string> blocksOf(std::string_view text) {
  std::vector<std::string> blocks;
  bool isOpen = false;
  bool isHeading = false;
  for (const std::string_view line : linesOf(text)) {
    const auto [content, hasMark] = withoutMark(line);
    if (content.empty()) {
      isOpen = false;
      continue;
    }
    if (!isOpen || hasMark || isHeading) blocks.emplace_back();
    appendCollapsed(blocks.back(), content);
    isOpen = true;
    isHeading = line.starts_with('#');
  }
  return blocks;
}

}  // namespace norvast
