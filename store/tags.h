// Tags: the most frequent entity tags across the nominated files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/mcp_store.h"

namespace norvast {

inline constexpr std::size_t MOST_TAGS = 50;

// At most MOST_TAGS tags, most frequent first, equal counts by tag text. Every occurrence counts.
// Canonically equivalent spellings are one tag, under the spelling met first.
std::vector<std::string> tags(const MCPStore& store);

// The tags of one analysis: the lines of `entities`, unchanged, empty ones left out. A line feed
// behind a carriage return ends no line: the two are one character, which is no line feed.
std::vector<std::string_view> tagLines(std::string_view entities);

}  // namespace norvast
