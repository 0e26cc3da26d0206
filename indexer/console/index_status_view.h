// Index status view: the status as a person reads it, and as a script does.
#pragma once

#include <string>
#include <vector>

#include "indexer/indexing/failures.h"
#include "indexer/indexing/index_status.h"
#include "json/json.h"

namespace norvast::indexer {

// A short table; switches that are not as they are at first are coloured on a terminal.
std::string statusText(const IndexStatus& status);
Json statusJson(const IndexStatus& status);

// The files without text with their reasons: a line each, or an object each.
std::string withoutTextList(const std::vector<FailedFile>& files);
Json withoutTextJson(const std::vector<FailedFile>& files);

}  // namespace norvast::indexer
