// LIKE patterns: user text made literal for SQL's LIKE ? ESCAPE '\'.
#pragma once

#include <string>
#include <string_view>

namespace norvast {

// The text with a backslash before every backslash, % and _, so that LIKE matches it literally.
std::string likeLiteral(std::string_view text);

// The pattern of every text that contains `text`.
std::string likeContaining(std::string_view text);

// The pattern of every path at any depth below `folder`, which has no trailing solidus.
std::string likeBelow(std::string_view folder);

}  // namespace norvast
