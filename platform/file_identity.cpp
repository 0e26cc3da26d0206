#include "platform/file_identity.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace norvast {

std::optional<std::string> fileIdentity(const std::string& path) {
  constexpr unsigned WANTED = STATX_INO | STATX_BTIME;
  struct statx status {};
  if (statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, WANTED, &status) != 0 ||
      (status.stx_mask & WANTED) != WANTED) {
    return std::nullopt;
  }
  return std::to_string(status.stx_ino) + " " + std::to_string(status.stx_btime.tv_sec) + " " +
         std::to_string(status.stx_btime.tv_nsec);
}

std::optional<FileNumber> fileNumber(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  return FileNumber{status.st_dev, status.st_ino};
}

}  // namespace norvast
