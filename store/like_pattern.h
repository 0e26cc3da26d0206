// LIKE patterns: user text made literal for SQL's LIKE ? ESCAPE '\'.
#pragma once

#include <string>
#include <string_view>

namespace norvast {

// The pattern of every text that contains `text`.
std::string likeContaining(std::string_view text);

// The pattern of every path at any depth below `folder`, which has no trailing solidus.
std::string likeBelow(std::string_view folder);

// Whether SQL's `text LIKE pattern ESCAPE '\'` holds, of an invalid text too.
bool isLike(const std::string& text, const std::string& pattern);

}  // namespace norvast
