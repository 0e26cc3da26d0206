// Regular file: opened for reading only when it is one, so that no pipe, socket or device can make
// the reader wait or feed it without end.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/descriptor.h"

namespace norvast {

struct RegularFile {
  Descriptor descriptor;        // at the file's beginning; closed in programs started from here
  std::uint64_t sizeBytes = 0;  // when it was opened
};

// The regular file at `path`, following symbolic links. Nothing, at once, when there is none, when
// it may not be read, when it is anything else, or when `path` holds a NUL, which no name can.
std::optional<RegularFile> openRegularFile(const std::string& path);

}  // namespace norvast
