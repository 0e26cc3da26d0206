// Library answer tool: what of the whole library may answer a question, while the user allows it.
#pragma once

#include "json/json.h"
#include "tools/arguments.h"
#include "tools/tool_context.h"

namespace norvast {

// "question", "limit" (8; brought into 1..30): files with their summaries, those that the terms of
// the question find by name, tag or summary first, those nearest to it in meaning in the places
// that are left. Never content. Refused without an audit row while whole-library access is off, and
// when nothing is found.
Json askNorvastTool(const Arguments& args, const ToolContext& context);

}  // namespace norvast
