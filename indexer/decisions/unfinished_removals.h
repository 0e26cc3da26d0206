// Unfinished removals: the paths whose files a command began to remove from the index. It notes a
// path together with the decision and strikes it out behind the last file; where it was killed
// between them, the next run finishes what it began (indexer/indexing/index_files.h).
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "indexer/decisions/decisions.h"
#include "store/connection.h"

namespace norvast::indexer {

// Both within the caller's transaction, or one of their own. False when the index could not be
// written.
bool noteRemoval(const Connection& index, const std::string& path);
bool strikeRemoval(const Connection& index, const std::string& path);

// Those that are not finished. Nothing when the index could not be read.
std::optional<std::vector<std::string>> unfinishedRemovals(const Connection& index);

// Hides from clients what is still to be removed, whatever rules there are further out: within the
// transaction that changed the decisions. False when the index could not be read or written.
bool hideUnfinished(const Connection& index, const Decisions& decisions);

}  // namespace norvast::indexer
