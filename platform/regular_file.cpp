#include "platform/regular_file.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
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

// How many are tried where they are not listed. The system gives out the lowest free number.
constexpr rlim_t MOST_DESCRIPTORS = rlim_t{1} << 16;

bool isSameFile(const struct stat& one, int number) {
  struct stat other {};
  return fstat(number, &other) == 0 && one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

// Calls `visit` with the number of each open descriptor. Without /proc, with all that may be one.
template <typename Visit>
void forEachDescriptor(Visit visit) {
  std::error_code failure;
  std::filesystem::directory_iterator entry(OWN_DESCRIPTORS, failure);
  for (; !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure)) {
    const std::string name = entry->path().filename();
    int number = -1;
    (void)std::from_chars(name.data(), name.data() + name.size(), number);
    visit(number);
  }
  if (!failure) return;
  rlimit limit{};
  if (getrlimit(RLIMIT_NOFILE, &limit) != 0) limit.rlim_cur = MOST_DESCRIPTORS;
  const auto end = static_cast<int>(std::min<rlim_t>(limit.rlim_cur, MOST_DESCRIPTORS));
  for (int number = 0; number < end; ++number) visit(number);
}

// True when a descriptor other than `looking` and the standard ones has that file open.
bool isOpenHere(const struct stat& file, const Descriptor& looking) {
  bool isFound = false;
  forEachDescriptor([&](int number) {
    if (number <= STDERR_FILENO || number == looking.number()) return;
    isFound = isFound || isSameFile(file, number);
  });
  return isFound;
}

// Opens the file that `place` refers to: through /proc the very same, whatever has become of its
// path. Without /proc by the path, when that still leads there.
Descriptor openAgain(const Descriptor& place, const struct stat& status, const std::string& path) {
  constexpr int FLAGS = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
  const std::string link = std::string(OWN_DESCRIPTORS) + "/" + std::to_string(place.number());
  Descriptor file(open(link.c_str(), FLAGS));
  if (file || access(OWN_DESCRIPTORS, F_OK) == 0) return file;
  file = Descriptor(open(path.c_str(), FLAGS));
  if (!file || isSameFile(status, file.number())) return file;
  // Another file came to the path. It may be one that is open here, and is never closed then.
  struct stat other {};
  if (fstat(file.number(), &other) != 0 || isOpenHere(other, file)) (void)file.release();
  return Descriptor();
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

  Descriptor file = openAgain(place, status, path);
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
