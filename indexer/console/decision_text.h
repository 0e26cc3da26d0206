// Decision text: what became of a decision, as a person reads it.
#pragma once

#include <string>

#include "indexer/decisions/decision_changes.h"

namespace norvast::indexer {

// A line for each thing that the user may not expect of what was decided for the path: it was left
// out before, or rules below it stay as they are. Empty when there is none.
std::string changeRemarks(const DecisionChange& change, const std::string& path);

}  // namespace norvast::indexer
