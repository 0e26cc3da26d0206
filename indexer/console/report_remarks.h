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

}  // namespace norvast::indexer
