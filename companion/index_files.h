// Indexing files: bringing the rows of the index in line with what lies on disk.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "companion/file_scan.h"
#include "companion/nominations.h"
#include "store/connection.h"

namespace norvast {

struct IndexingReport {
  std::uint64_t indexed = 0;      // new and changed files
  std::uint64_t withoutText = 0;  // of these
  std::uint64_t unchanged = 0;  // of the same size and modification time as when they were indexed
  std::uint64_t removed = 0;    // gone from disk, and so from every table, nominations included
  std::uint64_t nominated = 0;
  std::vector<std::string> unreadableFiles;  // indexed by name; tried again by the next run
  ScanReport scan;
  bool isComplete = true;  // false when the database refused a batch: what came before it is kept
};

struct IndexingOptions {
  std::optional<Nomination> nomination;  // for every file that is met
  bool isQuiet = false;                  // draws no progress
};

// Indexes the files at and below each root (absolute, free of links) and removes the rows of files
// that are gone from there. What lies in a folder that cannot be read is kept. Files are analysed
// first and written after, in batches of one transaction each: a reader waits for moments only, and
// an interruption at any point leaves whole files, the rest of which the next run makes good.
IndexingReport indexFiles(const Connection& index, const std::vector<std::string>& roots,
                          const IndexingOptions& options);

}  // namespace norvast
