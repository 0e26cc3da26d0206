// Scratch index: what the index knows of files and decisions, in memory, so that it can be seen
// what a command would do.
#pragma once

#include <string>
#include <variant>

#include "store/connection.h"

namespace norvast::indexer {

// Returns an index in memory, in the layout of this version, with the files, failures, decisions
// and settings of the user's index, but without what was made of texts. It has no rows if the user
// has no index yet. If the user's index cannot be read, the result is the reason, in one sentence
// for the user.
//
// The user's index and its folder stay byte for byte as they are. There is one exception: if
// another program has the index open, or if a crash left its log, SQLite creates or changes the
// file of shared memory beside it (-shm), through which readers and writers know of each other.
std::variant<Connection, std::string> scratchIndex();

}  // namespace norvast::indexer
