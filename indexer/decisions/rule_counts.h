// Rule counts: what the user decided, and how many files follow it.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "indexer/decisions/decisions.h"
#include "store/connection.h"

namespace norvast::indexer {

struct RuleCount {
  std::optional<Rule> rule;  // nothing: the files for which there is none
  std::uint64_t files = 0;   // indexed ones that follow it
};

// Each rule in the order of the paths, last the files without one. Nothing when the index could not
// be read.
std::optional<std::vector<RuleCount>> countByRule(const Connection& index, const Rules& rules);

struct DecisionsInForce {
  std::vector<Root> roots;
  std::vector<RuleCount> counts;
};

// All decisions with their counts; nothing as above.
std::optional<DecisionsInForce> decisionsInForce(const Connection& index);

}  // namespace norvast::indexer
