// Forecast text: what a run would do, as a person reads it.
#pragma once

#include <string>
#include <vector>

#include "indexer/indexing/index_files.h"
#include "store/connection.h"

namespace norvast::indexer {

// The table of files to be read, left alone and forgotten, and of what clients would see of all at
// and below the paths, counted in the scratch index that the run was tried on; then a line for each
// kind of thing that would be passed over.
std::string forecastText(const Connection& scratch, const IndexingReport& report,
                         const std::vector<std::string>& paths);

}  // namespace norvast::indexer
