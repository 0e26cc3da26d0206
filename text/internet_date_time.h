// Instants as text: the ISO 8601 internet date-time form (RFC 3339), in UTC.
#pragma once

#include <cstdint>
#include <string>

namespace norvast {

// The instant `seconds` after 1970-01-01T00:00:00Z, without fractional seconds, in the proleptic
// Gregorian calendar: 1700000000 gives 2023-11-14T22:13:20Z. Any value has a text: years beyond
// 9999 get more digits, years before 0000 a minus sign.
std::string internetDateTime(std::int64_t seconds);

}  // namespace norvast
