#include "server/line_reader.h"

#include <algorithm>
#include <new>

namespace norvast {

bool LineReader::refill() {
  const std::size_t count = input_.read(block_).value_or(0);
  unread_ = {block_.data(), count};
  return count > 0;
}

std::optional<std::string> LineReader::next() {
  try {
    return readLine();
  } catch (const std::bad_alloc&) {
    skipLine();
    return std::string();
  }
}

// What throws leaves the line's end unread.
std::optional<std::string> LineReader::readLine() {
  std::string line;
  while (!unread_.empty() || refill()) {
    const std::size_t end = unread_.find('\n');
    line.append(unread_.substr(0, end));
    if (end == std::string_view::npos) {
      unread_ = {};
      continue;
    }
    unread_.remove_prefix(end + 1);
    if (line.ends_with('\r')) line.pop_back();
    return line;
  }
  if (line.empty()) return std::nullopt;
  return line;
}

void LineReader::skipLine() {
  while (!unread_.empty() || refill()) {
    const std::size_t end = unread_.find('\n');
    unread_.remove_prefix(std::min(end, unread_.size() - 1) + 1);
    if (end != std::string_view::npos) return;
  }
}

}  // namespace norvast
