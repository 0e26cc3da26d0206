// Content tool: the one tool that opens a file. Three gates stand before it. Each call writes one
// audit row.
#pragma once

#include "json/json.h"
#include "tools/arguments.h"
#include "tools/tool_context.h"

namespace norvast {

// "path": the text of the file, unchanged and without any mark where it was cut: its first 60,000
// user-perceived characters for a PDF or an image, bytes for any other. Refused for a sensitive
// path before the index is asked, for one that is not nominated or not with its content, and when
// no text comes out of the file, for whatever reason.
Json readFileContentTool(const Arguments& args, const ToolContext& context);

}  // namespace norvast
