// Whole-library queries: metadata and summaries of every indexed file, nominated or not. Whether
// the user allows that is for the caller to ask first.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "json/json.h"
#include "store/mcp_store.h"

namespace norvast {

// File records, with "summary" where there is a non-empty one, of files whose name, summary or
// entity tags contain `query`: those that match by name first, newest first in either group, at
// most `limit` of them, which is brought into 1..500. ASCII letters match without regard to case.
Json::Array searchLibrary(const MCPStore& store, const std::string& query, std::int64_t limit);

// The summary of any indexed path, empty when its analysis has a NULL one. Nothing when it has no
// analysis.
std::optional<std::string> librarySummary(const MCPStore& store, const std::string& path);

}  // namespace norvast
