// Known files: what the index knows of the files at a place, held against those that are there.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "indexer/decisions/decisions.h"
#include "indexer/indexing/failures.h"
#include "indexer/indexing/file_scan.h"
#include "store/connection.h"

namespace norvast::indexer {

// A part of a root, or a whole one.
struct RootPlace {
  std::string root;
  std::string start;
};

// The places at and below the path, one for each root that they lie in.
std::vector<RootPlace> placesWithin(const Decisions& decisions, const std::string& path);

enum class FileChange {
  none,          // of the same size and modification time as when it was indexed
  failedBefore,  // as none, but it could not be read for a reason that may have passed
  content,
  isNew,
};

class KnownFiles {
 public:
  // Those of the place's own root, not of roots within it; all else is forgotten. False when the
  // index could not be read.
  bool read(const Connection& index, const Decisions& decisions, const RootPlace& place);

  // A file that is there: what became of it since.
  FileChange meet(const ScannedFile& file);

  // A file that was there and is no more.
  void lose(const std::string& path);

  // Whether a file that failed is as it was when that was written down.
  bool isStillSo(const ScannedFile& file, const FailedFile& failed) const;

  // The known files that were not met or got lost, in the byte order of their paths, but for those
  // in folders that could not be read: they are hidden, not gone.
  std::vector<std::string> vanished(std::span<const std::string> unreadableFolders) const;

 private:
  struct KnownFile {
    std::int64_t sizeBytes = 0;
    std::int64_t modified = 0;
    std::int64_t nanoseconds = 0;
    std::optional<FailedFile> failure;
    bool isThere = false;

    bool isSame(const ScannedFile& file) const;
  };

  std::unordered_map<std::string, KnownFile> files_;
};

}  // namespace norvast::indexer
