#include "indexer/analysis/lines.h"

#include <algorithm>

#include "text/ascii.h"

namespace norvast::indexer {
namespace {

constexpr std::string_view MARKS = "#-*>|+=_/;%";
constexpr std::size_t MOST_DIGITS_OF_A_MARK = 3;

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

std::size_t markLength(std::string_view line) {
  std::size_t end = line.find_first_not_of(MARKS);
  if (end == std::string_view::npos) return line.size();
  if (end == 0) {
    while (end < line.size() && isAsciiDigit(line[end])) ++end;
    if (end == 0 || end > MOST_DIGITS_OF_A_MARK || !line.substr(end).starts_with(". ")) return 0;
    ++end;
  }
  const std::size_t content = line.find_first_not_of(" \t", end);
  return content == end || content == std::string_view::npos ? 0 : content;
}

std::string onOneLine(std::string_view text) {
  std::string joined;
  joined.reserve(text.size());
  for (std::string_view line : linesOf(text)) {
    line.remove_prefix(markLength(line));
    bool isWithinWord = false;
    for (const char character : line) {
      if (isBlank(character)) {
        isWithinWord = false;
        continue;
      }
      if (!isWithinWord && !joined.empty()) joined += ' ';
      joined += character;
      isWithinWord = true;
    }
  }
  return joined;
}

}  // namespace norvast::indexer
