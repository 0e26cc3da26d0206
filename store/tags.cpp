#include "store/tags.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>
#include <utility>

#include "store/statement.h"
#include "text/unicode.h"

namespace norvast {
namespace {

struct Tag {
  std::string spelling;
  std::int64_t count = 0;
};

bool isBefore(const Tag& left, const Tag& right) {
  if (left.count != right.count) return left.count > right.count;
  return left.spelling < right.spelling;
}

}  // namespace

std::vector<std::string_view> tagLines(std::string_view entities) {
  std::vector<std::string_view> lines;
  std::size_t start = 0;
  for (std::size_t at = 0; at <= entities.size(); ++at) {
    const bool ends =
        at == entities.size() || (entities[at] == '\n' && (at == 0 || entities[at - 1] != '\r'));
    if (!ends) continue;
    if (at > start) lines.push_back(entities.substr(start, at - start));
    start = at + 1;
  }
  return lines;
}

std::vector<std::string> tags(const MCPStore& store) {
  std::unordered_map<std::string, Tag> counted;  // by canonical form
  Statement statement(store.rdb,
                      "SELECT a.entities FROM analysis a JOIN mcp_exposure m ON m.path=a.path");
  while (statement.step()) {
    const std::string entities = statement.text(0);
    for (const std::string_view line : tagLines(entities)) {
      Tag& tag = counted[canonicalForm(line)];
      if (tag.count++ == 0) tag.spelling = line;
    }
  }

  std::vector<Tag> order;
  order.reserve(counted.size());
  for (auto& entry : counted) order.push_back(std::move(entry.second));
  const auto kept = static_cast<std::ptrdiff_t>(std::min(order.size(), MOST_TAGS));
  std::partial_sort(order.begin(), order.begin() + kept, order.end(), isBefore);

  std::vector<std::string> texts;
  for (auto tag = order.begin(); tag != order.begin() + kept; ++tag) {
    texts.push_back(std::move(tag->spelling));
  }
  return texts;
}

}  // namespace norvast
