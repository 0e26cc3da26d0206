// Decimal integers in text, as columns and arguments give them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace norvast {

// The whole text as a number: an optional single + or -, then ASCII digits and nothing else, within
// 64 bits. Nothing for any other text.
std::optional<std::int64_t> parseDecimalInteger(std::string_view text);

}  // namespace norvast
