// Local time: an instant as the user's clock shows it.
#pragma once

#include <cstdint>
#include <string>

namespace norvast::indexer {

// The instant by a format of strftime(3); "?" when the calendar does not reach that far.
std::string localTime(std::int64_t secondsSince1970, const char* format);

}  // namespace norvast::indexer
