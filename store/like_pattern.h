// LIKE patterns: user text made literal for SQL's LIKE ? ESCAPE '\'.
#pragma once

#include <string>
#include <string_view>

namespace norvast {

// The pattern of every text that contains `text`.
std::string likeContaining(std::string_view text);

// The pattern of every path at any depth below `folder`, which has no trailing solidus.
std::string likeBelow(std::string_view folder);

}  // namespace norvast
