// Report remarks: what a run met that a person should know of, and what it passed over and why.
#pragma once

#include <string>

#include "indexer/indexing/index_files.h"

namespace norvast::indexer {

// For each kind of thing its paths, the first ten printable, the others counted. Without what rules
// leave out: the user named that one by one.
std::string remarksText(const IndexingReport& report);

// What rules leave out.
std::string ruledOutText(const LeftOut& leftOut);

// A line for each restriction that files kept when they turned up in a place that would show more
// of them, with the command that lifts it; empty if there were none.
std::string restrictedText(const std::vector<MovedRule>& moved);

}  // namespace norvast::indexer
