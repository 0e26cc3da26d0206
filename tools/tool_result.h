// Tool result: what every tool call is answered with, refusals included.
#pragma once

#include <string>

#include "access/audit_trail.h"
#include "json/json.h"

namespace norvast {

enum class IsError : bool { no, yes };

// {"content": [{"type": "text", "text": TEXT}], "isError": BOOLEAN}
Json textResult(std::string text, IsError isError);

// Records what was refused, and answers with that sentence as an error.
Json refuse(const MCPStore& store, const AuditEvent& event, std::string sentence);

// An answer of structured data as text: pretty-printed JSON with sorted keys, or "null" when it
// holds a number that JSON cannot express (NaN, infinity).
std::string jsonText(const Json& value);

}  // namespace norvast
