#include "server/line_reader.h"

#include <utility>

#include "platform/utf8.h"

namespace norvast {

bool LineReader::refill() {
  const std::size_t count = input_.read(block_).value_or(0);
  unread_ = {block_.data(), count};
  return count > 0;
}

std::optional<std::string> LineReader::next() {
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
    return repairUtf8(std::move(line));
  }
  if (line.empty()) return std::nullopt;
  return repairUtf8(std::move(line));
}

}  // namespace norvast
