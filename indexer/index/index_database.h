// Index database: creating and opening the index for writing, and recognising one that is ours.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "store/connection.h"

namespace norvast::indexer {

// The index of this user, open for writing; it and its folder are created when they are missing,
// and tables of an earlier version are brought up to date. In write-ahead mode, so that a running
// server goes on reading. Or, in one sentence for the user, why it cannot be used: it is then left
// untouched.
std::variant<Connection, std::string> openIndex();

// In one sentence for the user, why the file at the index's place is none of ours. Nothing when it
// is one, or there is none yet. Looks at its header alone.
std::optional<std::string> objectionToIndex();

}  // namespace norvast::indexer
