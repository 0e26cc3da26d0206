#include "platform/regular_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <charconv>
#include <filesystem>
#include <string_view>
#include <system_error>

#include <cstddef>
#include <span>
#include <utility>

namespace norvast {
namespace {

constexpr const char* OWN_DESCRIPTORS = "/proc/self/fd";  // a link for each, named by its number

bool isSameFile(const struct stat& one, int number) {
  struct stat other {};
  return fstat(number, &other) == 0 && one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

// True when a descriptor other than `looking` and the standard ones has that file open, or when
// that cannot be told.
bool isOpenHere(const struct stat& file, const Descriptor& looking) {
  std::error_code failure;
  std::filesystem::directory_iterator entry(OWN_DESCRIPTORS, failure);
  for (; !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure)) {
    const std::string name = entry->path().filename();
    int number = -1;
    (void)std::from_chars(name.data(), name.data() + name.size(), number);
    if (number <= STDERR_FILENO || number == looking.number()) continue;
    if (isSameFile(file, number)) return true;
  }
  return static_cast<bool>(failure);
}

}  // namespace

std::optional<RegularFile> openRegularFile(const std::string& path) {
  if (path.find('\0') != std::string::npos) return std::nullopt;
  // Looked at before it is opened: opening a device may do something, and closing what SQLite has
  // open would drop its locks on it.
  const Descriptor place(open(path.c_str(), O_PATH | O_CLOEXEC));
  struct stat status {};
  if (!place || fstat(place.number(), &status) != 0 || !S_ISREG(status.st_mode))
    return std::nullopt;
  if (isOpenHere(status, place)) return std::nullopt;

  // The very same file, whatever has become of its path.
  const std::string link = std::string(OWN_DESCRIPTORS) + "/" + std::to_string(place.number());
  Descriptor file(open(link.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!file) return std::nullopt;
  return RegularFile{std::move(file), static_cast<std::uint64_t>(status.st_size)};
}

std::optional<std::vector<char>> readRegularFile(const std::string& path,
                                                 std::uint64_t limitBytes) {
  const auto file = openRegularFile(path);
  if (!file || file->sizeBytes > limitBytes) return std::nullopt;
  std::vector<char> bytes(file->sizeBytes);
  std::size_t length = 0;
  while (length < bytes.size()) {
    const auto count = file->descriptor.read(std::span(bytes).subspan(length));
    if (!count) return std::nullopt;
    if (*count == 0) break;  // it has shrunk
    length += *count;
  }
  bytes.resize(length);
  return bytes;
}

}  // namespace norvast
