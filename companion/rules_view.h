// Rules view: what the user decided, and how many files follow it, as a person reads it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "companion/decisions.h"
#include "store/connection.h"

namespace norvast {

struct RuleCount {
  std::optional<Rule> rule;  // nothing: the files for which there is none
  std::uint64_t files = 0;   // indexed ones that follow it
};

// Each rule in the order of the paths, last the files without one. Nothing when the index could not
// be read.
std::optional<std::vector<RuleCount>> countByRule(const Connection& index, const Rules& rules);

// The table of roots and rules, or nothing as above.
std::optional<std::string> rulesText(const Connection& index);

// What holds for the path after its own rule was dropped, in one line.
std::string clearedText(const Connection& index, const std::string& path);

}  // namespace norvast
