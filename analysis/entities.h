// Entities: the people, places, organisations, dates and addresses that a text names, as far as
// plain rules find them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace norvast {

inline constexpr std::size_t MOST_ENTITIES = 20;

// At most MOST_ENTITIES, most frequent first, equal counts in the order of the text; none holds a
// line break. Found are e-mail and web addresses, telephone numbers that begin with +, dates
// (2026-05-14, 14.05.2026, 14 May 2026, May 14, 2026), streets with a house number, and names: runs
// of two or more capitalised words, and single ones that follow "in", "at", "from" or "near".
// Rather one is missed than a stray word taken: lines that look like a program give no names. Looks
// at the leading 100,000 bytes.
std::vector<std::string> findEntities(std::string_view text);

}  // namespace norvast
