// JSON output: what commands print for scripts.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "json/json.h"

namespace norvast::indexer {

// The text of the value as a script reads it and a person can, ended by a line feed; or on one line
// of its own. Characters that could steer a terminal stand as escapes. Bytes of a path that are not
// UTF-8 become U+FFFD: JSON has no way to say them.
std::string jsonText(const Json& value);
std::string jsonLine(const Json& value);

Json orNull(const std::optional<std::string>& text);
Json strings(const std::vector<std::string>& texts);

}  // namespace norvast::indexer
