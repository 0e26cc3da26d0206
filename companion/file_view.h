// File view: what the index holds of one file, for people who wonder.
#pragma once

#include <optional>
#include <string>

#include "store/mcp_store.h"

namespace norvast {

// A table of what is known of the indexed file, what its text became, and what AI clients may see
// of it, each text on one line and free of control characters. Nothing for a path that is not
// indexed.
std::optional<std::string> fileView(const MCPStore& store, const std::string& path);

}  // namespace norvast
