// Indexing report: what a run did and did not do, as a person reads it.
#pragma once

#include <string>
#include <vector>

#include "indexer/indexing/index_files.h"
#include "store/connection.h"

namespace norvast::indexer {

// The table of counts, then a line for each kind of thing that was passed over. Files without text
// and files that clients see are counted among all that are known at and below the paths; by name
// come those that this run met, first what a user can mend.
std::string reportText(const Connection& index, const IndexingReport& report,
                       const std::vector<std::string>& paths);

// Whether something could not be read for now.
bool hasGaps(const IndexingReport& report);

}  // namespace norvast::indexer
