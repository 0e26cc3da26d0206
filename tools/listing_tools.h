// Listing tools: what the user has nominated, without any content. Each writes one audit row and
// never answers with an error; a failing query is an empty listing.
#pragma once

#include "json/json.h"
#include "tools/arguments.h"
#include "tools/tool_context.h"

namespace norvast {

// "offset" (0), "limit" (200): a page of all nominated files by path.
Json listFilesTool(const Arguments& args, const ToolContext& context);

// "query", "limit" (50): nominated files whose name contains the query, newest first.
Json searchFilesTool(const Arguments& args, const ToolContext& context);

// "path": at most 200 nominated files below that folder.
Json traversePackageTool(const Arguments& args, const ToolContext& context);

// The most frequent entity tags of the nominated files.
Json listTagsTool(const Arguments& args, const ToolContext& context);

}  // namespace norvast
