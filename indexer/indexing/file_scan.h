// File scan: the files below a path that may be indexed.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "indexer/decisions/entry_kind.h"
#include "indexer/decisions/path_sample.h"

namespace norvast::indexer {

// A regular file as it was when the scan met it.
struct ScannedFile {
  std::string path;  // absolute, UTF-8
  std::int64_t sizeBytes = 0;
  std::int64_t modified = 0;     // whole seconds since 1970-01-01 00:00:00 UTC
  std::int64_t nanoseconds = 0;  // of the modification time, within its second
};

// What a scan passed over for a reason that the user should hear of.
struct ScanReport {
  std::vector<std::string> unreadableFolders;  // wholly or in part
  std::vector<std::string> linkedRoots;        // that a link leads to now
  PathSample unusableNames;                    // with a line break or bytes that are not UTF-8
  PathSample sensitivePaths;
};

// Chooses what a scan goes on with, besides what it leaves out by itself.
class ScanFilter {
 public:
  ScanFilter() = default;
  virtual ~ScanFilter() = default;
  ScanFilter(const ScanFilter&) = delete;
  ScanFilter& operator=(const ScanFilter&) = delete;

  // Asked before the entries of a folder are met; whether they are at all.
  virtual bool enters(const std::string& folder) = 0;

  // Asked for each entry of the folder that was entered last. `name` is the last part of `path`.
  virtual bool takes(const std::string& path, std::string_view name, EntryKind kind) = 0;
};

// Whether a path can stand in the index: it is UTF-8 and without a line break.
bool isIndexable(std::string_view path);

// Calls `visit` with every regular file at any depth below `start`, or with `start` itself when it
// is a file, in no particular order, and adds to the report. `start` is `root` or lies below it;
// then each folder on the way from the root to it is asked for, too, and nothing is visited where
// one is left out. Symbolic links are not followed; hidden names (with a leading dot) and sensitive
// paths are left out with all that is below them. `root` is absolute, and taken even when its own
// name is hidden. Where a link leads to it or to the start by now, nothing is visited: what lies
// there has another path, and what was decided for that holds.
void scanFiles(const std::string& root, const std::string& start, ScanFilter& filter,
               const std::function<void(ScannedFile)>& visit, ScanReport& report);

}  // namespace norvast::indexer
