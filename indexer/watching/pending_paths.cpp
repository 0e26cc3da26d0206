#include "indexer/watching/pending_paths.h"

#include <algorithm>
#include <set>
#include <utility>

#include "indexer/decisions/path_range.h"
#include "indexer/decisions/rules.h"

namespace norvast::indexer {
namespace {

// Programs that save write a file in several steps, in less than this.
constexpr std::chrono::milliseconds REST{300};

// For files that are written to without a rest.
constexpr std::chrono::milliseconds LONGEST_WAIT{1500};

// Looking through a folder costs as much as some hundred files by name.
constexpr std::size_t MOST_BY_NAME = 300;

}  // namespace

PendingPaths::Clock::time_point PendingPaths::Change::due() const {
  return std::min(last + REST, first + LONGEST_WAIT);
}

void PendingPaths::add(const std::string& path, Clock::time_point now) {
  changes_.try_emplace(path, Change{now, now}).first->second.last = now;
}

void PendingPaths::move(const std::string& from, const std::string& to) {
  const PathRange range(from);
  std::map<std::string, Change> moved;
  for (auto at = changes_.lower_bound(from); at != changes_.end() && at->first.starts_with(from);) {
    if (range.contains(at->first)) {
      moved.emplace(to + at->first.substr(from.size()), at->second);
      at = changes_.erase(at);
    } else {
      ++at;
    }
  }
  changes_.merge(moved);
}

std::optional<PendingPaths::Clock::time_point> PendingPaths::nextDue() const {
  const auto first = std::min_element(
      changes_.begin(), changes_.end(),
      [](const auto& one, const auto& other) { return one.second.due() < other.second.due(); });
  if (first == changes_.end()) return std::nullopt;
  return first->second.due();
}

std::vector<std::string> PendingPaths::takeDue(Clock::time_point now) {
  std::vector<std::string> due;
  for (auto at = changes_.begin(); at != changes_.end();) {
    if (at->second.due() <= now) {
      due.push_back(at->first);
      at = changes_.erase(at);
    } else {
      ++at;
    }
  }
  if (due.size() <= MOST_BY_NAME) return due;
  std::set<std::string> folders;
  for (const std::string& path : due) folders.emplace(parentOf(path).value_or(path));
  return {folders.begin(), folders.end()};
}

}  // namespace norvast::indexer
