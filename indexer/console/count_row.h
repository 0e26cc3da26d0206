// Count row: a line of the tables in which runs say what they did.
#pragma once

#include <cstdint>
#include <string>

namespace norvast::indexer {

// The name, then the number with all others in one column to the right.
std::string countRow(const std::string& name, std::uint64_t number);

}  // namespace norvast::indexer
