// Free space: giving back to the disk what the index no longer needs.
#pragma once

#include "store/connection.h"

namespace norvast::indexer {

// Shrinks the database by the pages that removed rows left, and empties the write-ahead log. Each
// step holds the write lock for some milliseconds. What another program's use of the index prevents
// is left for the next call.
void giveBackSpace(const Connection& index);

}  // namespace norvast::indexer
