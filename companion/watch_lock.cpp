#include "companion/watch_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace norvast {
namespace {

std::string lockPath(const std::string& indexFolder) { return indexFolder + "/watch.lock"; }

}  // namespace

std::optional<WatchLock> WatchLock::take(const std::string& indexFolder) {
  Descriptor file(open(lockPath(indexFolder).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW,
                       S_IRUSR | S_IWUSR));
  if (!file || flock(file.number(), LOCK_EX | LOCK_NB) != 0) return std::nullopt;
  // Who reads between both sees no number, and says so.
  if (ftruncate(file.number(), 0) != 0 || !file.write(std::to_string(getpid()))) {
    return std::nullopt;
  }
  return WatchLock(std::move(file));
}

std::optional<std::string> watchingProcess(const std::string& indexFolder) {
  const Descriptor file(open(lockPath(indexFolder).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
  if (!file || flock(file.number(), LOCK_SH | LOCK_NB) == 0 || errno != EWOULDBLOCK) {
    return std::nullopt;
  }
  std::array<char, 20> digits{};
  const auto count = file.read(digits).value_or(0);
  return std::string(digits.data(), count);
}

}  // namespace norvast
