// File mapping: the bytes of a file as memory, without a copy.
#pragma once

#include <optional>
#include <string_view>
#include <utility>

#include "platform/descriptor.h"

namespace norvast {

// False also when that cannot be told.
bool isEmptyFile(const Descriptor& file);

// Owns a read-only mapping of a whole file. Touching it ends the process (SIGBUS) where the file
// has shrunk since, so it is for programs that may end so.
class FileMapping {
 public:
  // The mapping of an open file. Nothing when the file is empty, cannot be mapped or is larger
  // than the address space that is left.
  static std::optional<FileMapping> of(const Descriptor& file);

  ~FileMapping();
  FileMapping(FileMapping&& other) noexcept : bytes_(std::exchange(other.bytes_, {})) {}
  FileMapping& operator=(FileMapping&& other) noexcept {
    std::swap(bytes_, other.bytes_);
    return *this;
  }
  FileMapping(const FileMapping&) = delete;
  FileMapping& operator=(const FileMapping&) = delete;

  std::string_view bytes() const { return bytes_; }

 private:
  explicit FileMapping(std::string_view bytes) : bytes_(bytes) {}

  std::string_view bytes_;
};

}  // namespace norvast
