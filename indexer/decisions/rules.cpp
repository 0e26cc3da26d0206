#include "indexer/decisions/rules.h"

#include <algorithm>
#include <array>
#include <utility>

#include "indexer/decisions/path_range.h"

namespace norvast::indexer {
namespace {

constexpr std::array<std::pair<RuleKind, std::string_view>, 4> NAMES = {{
    {RuleKind::content, "content"},
    {RuleKind::metadata, "metadata"},
    {RuleKind::withheld, "withheld"},
    {RuleKind::leftOut, "left out"},
}};

}  // namespace

std::string_view ruleName(RuleKind kind) {
  return std::find_if(NAMES.begin(), NAMES.end(),
                      [kind](const auto& row) { return row.first == kind; })
      ->second;
}

std::optional<RuleKind> ruleNamed(std::string_view name) {
  const auto* row = std::find_if(NAMES.begin(), NAMES.end(), [name](const auto& candidate) {
    return candidate.second == name;
  });
  if (row == NAMES.end()) return std::nullopt;
  return row->first;
}

bool showsLess(RuleKind one, RuleKind other) {
  const auto shown = [](RuleKind kind) {
    switch (kind) {
      case RuleKind::content:
        return 3;
      case RuleKind::metadata:
        return 2;
      case RuleKind::withheld:
        return 1;
      case RuleKind::leftOut:
        break;
    }
    return 0;
  };
  return shown(one) < shown(other);
}

std::optional<RuleKind> Rules::at(std::string_view path) const {
  const auto found = kinds_.find(path);
  if (found == kinds_.end()) return std::nullopt;
  return found->second;
}

std::optional<Rule> Rules::holdingFor(std::string_view path) const {
  for (std::optional<std::string_view> place = path; place; place = parentOf(*place)) {
    if (const auto kind = at(*place)) return Rule{std::string(*place), *kind};
  }
  return std::nullopt;
}

std::vector<Rule> Rules::below(const std::string& path) const {
  const PathRange range(path);
  std::vector<Rule> rules;
  for (auto at = kinds_.lower_bound(range.firstBelow);
       at != kinds_.end() && at->first < range.firstBehind; ++at) {
    if (at->first != path) rules.push_back({at->first, at->second});
  }
  return rules;
}

bool Rules::hasBelow(const std::string& path) const {
  const PathRange range(path);
  // "/" itself is the first path at or behind "/", and no path below it.
  const auto at = kinds_.upper_bound(range.firstBelow);
  return at != kinds_.end() && at->first < range.firstBehind;
}

std::vector<Rule> Rules::all() const {
  std::vector<Rule> rules;
  for (const auto& [path, kind] : kinds_) rules.push_back({path, kind});
  return rules;
}

std::optional<std::string_view> parentOf(std::string_view path) {
  const std::size_t solidus = path.rfind('/');
  if (solidus == std::string_view::npos || path == "/") return std::nullopt;
  return path.substr(0, std::max<std::size_t>(solidus, 1));
}

}  // namespace norvast::indexer
