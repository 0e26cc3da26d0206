// JSON parsing: one text in, one value out, in time and memory linear in the text (RFC 8259).
#pragma once

#include <optional>
#include <string_view>

#include "json/json.h"

namespace norvast {

// Arrays and objects within each other, the outermost counting as one. What recurses over a
// parsed value (writing, copying, destruction) stays far from the end of the stack.
inline constexpr std::size_t JSON_NESTING_LIMIT = 512;

// The value of `text`, which must be valid UTF-8. Nothing when it is not exactly one JSON text:
// anything behind it but white space, a byte-order mark before it, a NUL anywhere, a lone surrogate
// escape, a number beyond a double's range, or nesting beyond the limit. Of members with one key
// the last one counts.
std::optional<Json> parseJson(std::string_view text);

}  // namespace norvast
