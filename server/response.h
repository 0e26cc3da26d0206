// Responses: the shapes of the messages that the server writes, one compact JSON line each.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "json/json.h"
#include "json/json_text.h"
#include "server/output.h"

namespace norvast {

// The only JSON-RPC error code in use (JSON-RPC 2.0, section 5.1).
inline constexpr std::int64_t METHOD_NOT_FOUND = -32601;

// Writes {"jsonrpc": "2.0", "result": RESULT} with the request's "id" when it had one, null
// included. The line has reached the client when this returns. A message that cannot be rendered
// (NaN, infinity) is dropped.
void reply(Output& output, const std::optional<JsonText>& id, Json result);

// As `reply`, with "error": {"code": CODE, "message": MESSAGE} in place of the result.
void replyError(Output& output, const std::optional<JsonText>& id, std::int64_t code,
                const std::string& message);

}  // namespace norvast
