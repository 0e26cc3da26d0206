#include "analysis/text_blocks.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace norvast {
namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }

std::string_view trimmed(std::string_view line) {
  while (!line.empty() && isBlank(line.front())) line.remove_prefix(1);
  while (!line.empty() && isBlank(line.back())) line.remove_suffix(1);
  return line;
}

// The line behind its mark, and whether it had one.
std::pair<std::string_view, bool> withoutMark(std::string_view line) {
  const std::size_t mark = line.find_first_not_of("#-*>|+=_");
  if (mark == std::string_view::npos) return {{}, true};  // a rule
  if (mark > 0 && isBlank(line[mark])) return {trimmed(line.substr(mark)), true};
  std::size_t digits = 0;
  while (digits < line.size() && isDigit(line[digits])) ++digits;
  if (digits > 0 && digits < 4 && line.substr(digits).starts_with(". ")) {
    return {line.substr(digits + 2), true};
  }
  return {line, false};
}

}  // namespace

std::vector<std::string_view> wordsBetweenBlanks(std::string_view line) {
  std::vector<std::string_view> words;
  for (std::size_t at = 0; at < line.size();) {
    std::size_t end = at;
    while (end < line.size() && !isBlank(line[end])) ++end;
    if (end > at) words.push_back(line.substr(at, end - at));
    at = std::max(end, at + 1);
  }
  return words;
}

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
    for (const std::string_view word : wordsBetweenBlanks(content)) {
      if (!blocks.back().empty()) blocks.back() += ' ';
      blocks.back().append(word);
    }
    isOpen = true;
    isHeading = line.starts_with('#');
  }
  return blocks;
}

}  // namespace norvast
