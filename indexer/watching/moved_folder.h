// Moved folder: its files described under their new paths, without reading them again, and what was
// decided for it.
#pragma once

#include <string>

#include "store/connection.h"

namespace norvast::indexer {

// Lets the rows of all files below the folder `from` describe those below `to`, where it was moved;
// rows that stood there go. Roots in it are moved, and rules carried
// (indexer/decisions/moved_rules.h); clients see the files as these say. What is left out at the
// new place stays until that is indexed. False when the index could not be written, or one folder
// lies in the other; then nothing was changed.
bool moveRows(const Connection& index, const std::string& from, const std::string& to);

}  // namespace norvast::indexer
