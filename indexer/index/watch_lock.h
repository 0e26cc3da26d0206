// Watch lock: one program at a time watches for changes of an index.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "platform/descriptor.h"

namespace norvast::indexer {

// Held as long as it lives, and given back by the system when the process ends, however it does.
// Closing any descriptor of the lock's file would give it back, too (fcntl(2)): a process that
// holds one does not ask who watches.
class WatchLock {
 public:
  // Nothing when another process holds it, or the folder cannot be written to.
  static std::optional<WatchLock> take(const std::string& indexFolder);

 private:
  explicit WatchLock(Descriptor file) : file_(std::move(file)) {}

  Descriptor file_;
};

// The process that watches the index in this folder now; nothing when none does.
std::optional<std::int64_t> watchingProcess(const std::string& indexFolder);

}  // namespace norvast::indexer
