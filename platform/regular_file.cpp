#include "platform/regular_file.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace norvast {

std::optional<RegularFile> openRegularFile(const std::string& path) {
  if (path.find('\0') != std::string::npos) return std::nullopt;
  // Non-blocking: a FIFO opens at once, without a writer, and is then seen for what it is.
  Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
  struct stat status {};
  if (!file || fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  return RegularFile{std::move(file), static_cast<std::uint64_t>(status.st_size)};
}

}  // namespace norvast
