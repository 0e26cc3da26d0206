// Audit events: reading the trail of what AI clients looked at.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/mcp_store.h"

namespace norvast::indexer {

struct TrailEvent {
  std::int64_t number = 0;  // ascending in the order of the calls
  std::int64_t time = 0;    // seconds since 1970-01-01 00:00:00 UTC
  std::string verb;
  std::string object;
  std::string result;
  std::string severity;
};

// Returns the last `most` events, oldest first. Returns nothing if the trail could not be read.
std::optional<std::vector<TrailEvent>> lastEvents(const MCPStore& store, std::uint64_t most);

// Returns the events with a higher number, oldest first. Returns nothing if the trail could not be
// read.
std::optional<std::vector<TrailEvent>> eventsAfter(const MCPStore& store, std::int64_t number);

}  // namespace norvast::indexer
