#include "indexer/index/watch_lock.h"

#include <fcntl.h>
#include <unistd.h>

namespace norvast::indexer {
namespace {

Descriptor openLock(const std::string& indexFolder, int flags) {
  return Descriptor(open((indexFolder + "/watch.lock").c_str(), flags | O_CLOEXEC | O_NOFOLLOW,
                         S_IRUSR | S_IWUSR));
}

struct flock wholeFile(short type) {
  struct flock lock {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  return lock;
}

}  // namespace

std::optional<WatchLock> WatchLock::take(const std::string& indexFolder) {
  Descriptor file = openLock(indexFolder, O_RDWR | O_CREAT);
  const struct flock lock = wholeFile(F_WRLCK);
  if (!file || fcntl(file.number(), F_SETLK, &lock) != 0) return std::nullopt;
  return WatchLock(std::move(file));
}

std::optional<std::int64_t> watchingProcess(const std::string& indexFolder) {
  const Descriptor file = openLock(indexFolder, O_RDONLY);
  struct flock lock = wholeFile(F_RDLCK);
  if (!file || fcntl(file.number(), F_GETLK, &lock) != 0 || lock.l_type == F_UNLCK) {
    return std::nullopt;
  }
  return lock.l_pid;
}

}  // namespace norvast::indexer
