#include "platform/file_mapping.h"

#include <sys/mman.h>
#include <sys/stat.h>

namespace norvast {

bool isEmptyFile(const Descriptor& file) {
  struct stat status {};
  return fstat(file.number(), &status) == 0 && status.st_size == 0;
}

std::optional<FileMapping> FileMapping::of(const Descriptor& file) {
  struct stat status {};
  if (fstat(file.number(), &status) != 0 || status.st_size <= 0) return std::nullopt;
  const auto size = static_cast<std::size_t>(status.st_size);
  void* start = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.number(), 0);
  if (start == MAP_FAILED) return std::nullopt;
  return FileMapping(std::string_view(static_cast<const char*>(start), size));
}

FileMapping::~FileMapping() {
  // The mapping is ours to end, whatever its protection: munmap just takes no const.
  if (!bytes_.empty()) (void)munmap(const_cast<char*>(bytes_.data()), bytes_.size());
}

}  // namespace norvast
