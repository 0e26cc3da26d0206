// Library search tool: any indexed file by name, tag or summary, while the user allows it.
#pragma once

#include "json/json.h"
#include "tools/arguments.h"
#include "tools/tool_context.h"

namespace norvast {

// "query", "limit" (30): metadata and summaries, never content. Refused without an audit row while
// whole-library access is off.
Json searchLibraryTool(const Arguments& args, const ToolContext& context);

}  // namespace norvast
