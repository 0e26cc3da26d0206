// Passage retrieval tool: the passages that answer a query best, each with its citation.
#pragma once

#include "json/json.h"
#include "tools/arguments.h"
#include "tools/tool_context.h"

namespace norvast {

// "query", "limit" (8; brought into 1..50): passages of nominated files whose content may be read,
// best first. Refused, with an audit row, when the query has no vector.
Json retrievePassagesTool(const Arguments& args, const ToolContext& context);

}  // namespace norvast
