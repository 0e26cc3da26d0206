// Command output: how commands say what they did and why they could not.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "indexer/console/exit_status.h"
#include "store/connection.h"

namespace norvast::indexer {

// One line on standard error that says what to do.
ExitStatus fail(const std::string& why);
ExitStatus failWithoutIndex();

// For an index that cannot be read, or does not hold what it should: right after that was seen.
ExitStatus failToRead(const Connection& index);

// For an index that cannot be written, as Connection::lastFailure says it.
ExitStatus failToWrite(const std::string& obstacle);

// An index that is there already, open for writing; else what to tell the user.
std::variant<Connection, std::string> existingIndex();

// "1,234 files"
std::string count(std::uint64_t number, const std::string& noun);

// The first few of the paths, printable, with the number of the others: "/a, /b and 7 more".
std::string listed(const std::vector<std::string>& paths);

}  // namespace norvast::indexer
