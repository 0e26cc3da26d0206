// Rules view: what the user decided, as a person reads it, and as a script does.
#pragma once

#include <string>

#include "indexer/decisions/rule_counts.h"
#include "json/json.h"
#include "store/connection.h"

namespace norvast::indexer {

// The table of roots and rules, with the number of files that follow each.
std::string rulesText(const DecisionsInForce& decisions);
Json rulesJson(const DecisionsInForce& decisions);

// What holds for the path after its own rule was dropped, in one line.
std::string clearedText(const Connection& index, const std::string& path);

}  // namespace norvast::indexer
