// Index database: creating and opening the index for writing, and recognising one that is ours.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "store/connection.h"

namespace norvast::indexer {

// Opens the index of this user for writing. Creates it and its folder if they are missing, and
// brings the tables of an earlier version up to date. The database is in write-ahead mode, so that
// a running server can go on reading. If the index cannot be used, it is left untouched, and the
// result is the reason, in one sentence for the user.
std::variant<Connection, std::string> openIndex();

// Returns the reason why the file at the index's place is not an index of ours, in one sentence for
// the user. Returns nothing if it is one, or if there is no file yet. Reads only the file's header.
std::optional<std::string> objectionToIndex();

}  // namespace norvast::indexer
