// Audit view: an event of the trail on a line, as a person reads it, and as a script does.
#pragma once

#include <string>

#include "indexer/index/audit_events.h"

namespace norvast::indexer {

// Local time, verb, result and object; refusals are coloured on a terminal.
std::string eventLine(const TrailEvent& event);

// An object with time (UTC), verb, object, result and severity.
std::string eventJson(const TrailEvent& event);

}  // namespace norvast::indexer
