// Term search: the whole library searched for many terms in one reading of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "store/mcp_store.h"

namespace norvast {

// Calls `visit` with the place of a term in `terms`, and a path, for each record that
// searchLibrary(store, term, limit) would give: term by term, each in that order. The terms are
// valid UTF-8, neither empty nor equal, and hold no wildcard of LIKE. When the reading fails there
// are no records at all. Time grows with the text in the library, hardly with the terms.
void searchTerms(const MCPStore& store, std::span<const std::string> terms, std::int64_t limit,
                 const std::function<void(std::size_t, const std::string&)>& visit);

}  // namespace norvast
