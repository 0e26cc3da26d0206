// Whole numbers among JSON's numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace norvast {

// The exact value of a JSON number (RFC 8259, section 6) that is whole and fits 64 bits, however it
// was written (3, 3.0, 1e2); else nothing.
std::optional<std::int64_t> wholeNumber(std::string_view text);

}  // namespace norvast
