// Index status: what is in the index, where it lies and which switches are set.
#pragma once

#include <optional>
#include <string>

#include "store/mcp_store.h"

namespace norvast {

// A short table for a person. Nothing when the index is damaged.
std::optional<std::string> statusText(const MCPStore& store);

// A line for each file without text at or below the path, with the reason. Nothing as above.
std::optional<std::string> withoutTextList(const MCPStore& store, const std::string& path);

}  // namespace norvast
