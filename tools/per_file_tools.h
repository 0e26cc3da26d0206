// Per-file tools: what the index says of one nominated file. Each call writes one audit row.
#pragma once

#include "json/json.h"
#include "tools/arguments.h"
#include "tools/tool_context.h"

namespace norvast {

// "path": the file's record, with its summary when it has one. Refused for a sensitive path before
// the index is asked, and for one that is not nominated or not found.
Json getMetadataTool(const Arguments& args, const ToolContext& context);

// "path": the file's summary as plain text. Refused when it is not nominated or has no analysis.
Json getSummaryTool(const Arguments& args, const ToolContext& context);

}  // namespace norvast
