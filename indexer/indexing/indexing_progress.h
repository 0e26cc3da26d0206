// Indexing progress: who wants to follow a run is told of each file.
#pragma once

#include <cstdint>
#include <vector>

#include "content/file_kind.h"

namespace norvast::indexer {

// What the cost of a file depends on, as far as it is known before it is read.
struct FileWork {
  FileKind kind;
  std::int64_t bytes = 0;
};

class IndexingProgress {
 public:
  IndexingProgress() = default;
  virtual ~IndexingProgress() = default;
  IndexingProgress(const IndexingProgress&) = delete;
  IndexingProgress& operator=(const IndexingProgress&) = delete;

  // These files come next, in this order; those of an earlier call are done or given up.
  virtual void begin(const std::vector<FileWork>& files) = 0;

  // The next of them is done.
  virtual void finish(const FileWork& file) = 0;
};

}  // namespace norvast::indexer
