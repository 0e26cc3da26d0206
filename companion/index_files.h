// Indexing files: bringing the rows of the index in line with what lies on disk.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "companion/file_scan.h"
#include "store/connection.h"

namespace norvast {

// What an AI client may learn of a nominated file.
enum class Nomination { metadata, content };

struct IndexingReport {
  std::uint64_t indexed = 0;    // new and changed files
  std::uint64_t unchanged = 0;  // of the same size and modification time as when they were indexed
  std::uint64_t removed = 0;    // gone from disk, and so from every table, nominations included
  std::uint64_t nominated = 0;
  ScanReport scan;
  bool isComplete = true;  // false when the database refused a batch: what came before it is kept
};

// Indexes the files at and below each root (absolute, free of links), nominates them when asked,
// and removes the rows of files that are gone from there. What lies in a folder that cannot be read
// is kept. Written in batches, one transaction each: a reader waits for moments only, and an
// interruption loses one batch that the next run makes good.
IndexingReport indexFiles(const Connection& connection, const std::vector<std::string>& roots,
                          std::optional<Nomination> nomination);

}  // namespace norvast
