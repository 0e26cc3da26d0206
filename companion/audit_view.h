// Audit view: the trail of what AI clients looked at, as a person reads it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/mcp_store.h"

namespace norvast {

struct TrailRow {
  std::int64_t number = 0;  // ascending in the order of the calls
  std::string line;         // local time, verb, result and object; refusals coloured on a terminal
};

// The last `most` events, oldest first. Nothing when the trail could not be read.
std::optional<std::vector<TrailRow>> lastEvents(const MCPStore& store, std::uint64_t most);

// The events behind that number.
std::vector<TrailRow> eventsAfter(const MCPStore& store, std::int64_t number);

}  // namespace norvast
