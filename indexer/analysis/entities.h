// Entities: the people, places, organisations, dates and addresses that a text names, as far as
// plain rules find them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "indexer/analysis/outline.h"
#include "language/language.h"

namespace norvast::indexer {

inline constexpr std::size_t MOST_ENTITIES = 20;

// At most MOST_ENTITIES, most frequent first, equal counts in the order of the text; none holds a
// line break. Found are e-mail and web addresses (five of these at the most), telephone numbers
// that begin with +, dates (2026-05-14, 14.05.2026, 14 May 2026, May 14, 2026, 14 de mayo de 2026),
// streets with a house number, and names (name_finder.h), but none in headings, code and lines that
// look like a program. Looks at the leading 100,000 bytes.
std::vector<std::string> findEntities(const Outline& outline, const Language& language);

}  // namespace norvast::indexer
