// Watch lock: one program at a time watches for changes of an index.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "platform/descriptor.h"

namespace norvast::indexer {

// The lock is held while this object lives. The system releases it when the process ends, also when
// that is killed. Closing any descriptor of the lock's file would release it as well (fcntl(2)), so
// a process that holds the lock must not call watchingProcess.
class WatchLock {
 public:
  // Returns nothing if another process holds the lock, or if the folder cannot be written to.
  static std::optional<WatchLock> take(const std::string& indexFolder);

 private:
  explicit WatchLock(Descriptor file) : file_(std::move(file)) {}

  Descriptor file_;
};

// Returns the id of the process that watches the index in this folder now, or nothing if none does.
std::optional<std::int64_t> watchingProcess(const std::string& indexFolder);

}  // namespace norvast::indexer
