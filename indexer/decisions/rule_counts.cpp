#include "indexer/decisions/rule_counts.h"

#include <map>
#include <utility>

#include "store/statement.h"

namespace norvast::indexer {

std::optional<std::vector<RuleCount>> countByRule(const Connection& index, const Rules& rules) {
  std::map<std::string, std::uint64_t> numbers;
  std::uint64_t without = 0;
  Statement statement(index, "SELECT path FROM file");
  while (statement.step()) {
    const auto rule = rules.holdingFor(statement.text(0));
    ++(rule ? numbers[rule->path] : without);
  }
  if (!statement.isDone()) return std::nullopt;
  std::vector<RuleCount> counts;
  for (const Rule& rule : rules.all()) counts.push_back({rule, numbers[rule.path]});
  counts.push_back({std::nullopt, without});
  return counts;
}

std::optional<DecisionsInForce> decisionsInForce(const Connection& index) {
  auto decisions = readDecisions(index);
  auto counts = decisions ? countByRule(index, decisions->rules) : std::nullopt;
  if (!counts) return std::nullopt;
  return DecisionsInForce{std::move(decisions->roots), std::move(*counts)};
}

}  // namespace norvast::indexer
