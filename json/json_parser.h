// JSON parsing: a file as one value, in time and memory linear in the text (RFC 8259). Requests are
// read in place instead (json_text.h): they may hold what no library takes, and be large.
#pragma once

#include <optional>
#include <string_view>

#include "json/json.h"

namespace norvast {

// The value of `text`, which must be valid UTF-8. Nothing when it is not exactly one JSON text:
// anything behind it but white space, a byte-order mark before it, a NUL anywhere, a lone surrogate
// escape, a number beyond a double's range, or nesting beyond JSON_NESTING_LIMIT. Of members with
// one key the last one counts.
std::optional<Json> parseJson(std::string_view text);

}  // namespace norvast
