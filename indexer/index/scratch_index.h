// Scratch index: what the index knows of files and decisions, in memory, so that it can be seen
// what a command would do.
#pragma once

#include <string>
#include <variant>

#include "store/connection.h"

namespace norvast::indexer {

// An index of this version with the files, failures, decisions and settings of the user's, without
// what was made of texts; without rows when there is none yet. Or, in one sentence for the user,
// why there can be none.
//
// The user's index and its folder stay byte for byte as they are. Only while another program has
// the index open, or a crash left its log, SQLite makes or touches the shared memory beside it
// (-shm), by which readers and writers know of each other.
std::variant<Connection, std::string> scratchIndex();

}  // namespace norvast::indexer
