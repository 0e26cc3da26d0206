// File scan: the files below a path that may be indexed.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace norvast {

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
  std::uint64_t unusableNames = 0;             // with a line break or bytes that are not UTF-8
  std::uint64_t sensitivePaths = 0;
};

// Calls `visit` with every regular file at any depth below the folder `root`, or with `root` itself
// when it is a file, in no particular order, and adds to the report. Symbolic links are not
// followed; hidden names (with a leading dot) and sensitive paths are left out with all that is
// below them. `root` is absolute and free of links; it is taken even when its own name is hidden.
void scanFiles(const std::string& root, const std::function<void(ScannedFile)>& visit,
               ScanReport& report);

}  // namespace norvast
