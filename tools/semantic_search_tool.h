// Semantic search tool: nominated files by meaning.
#pragma once

#include "json/json.h"
#include "tools/arguments.h"
#include "tools/tool_context.h"

namespace norvast {

// "query", "limit" (10; below 0 counts as 0, no upper bound): the nominated files whose vectors are
// most similar to the query's, best first, with their summaries. Refused, with an audit row, when
// the query has no vector.
Json semanticSearchTool(const Arguments& args, const ToolContext& context);

}  // namespace norvast
