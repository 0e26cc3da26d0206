// Free space: giving back to the disk what the index no longer needs.
#pragma once

#include "store/connection.h"

namespace norvast::indexer {

// Gives back the pages that removed rows left, in steps that hold the write lock for moments, and
// the write-ahead log. What cannot be done because another program uses the index stays for the
// next time.
void giveBackSpace(const Connection& index);

}  // namespace norvast::indexer
