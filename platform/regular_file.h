// Regular file: opened for reading only when it is one, so that no pipe, socket or device can make
// the reader wait or feed it without end, and only when it is none that this process has open.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/descriptor.h"

namespace norvast {

struct RegularFile {
  Descriptor descriptor;        // at the file's beginning, non-blocking, closed in started programs
  std::uint64_t sizeBytes = 0;  // when it was opened
};

// The regular file at `path`, following symbolic links. Nothing, at once, when there is none, when
// it may not be read, when it is anything else, or when `path` holds a NUL, which no name can.
// Nothing, too, for a file that this process has open already, under whatever name: closing any
// descriptor of a file drops all locks of the process on it (fcntl(2)), and a database that lost
// its locks without knowing is worked on by others as if nobody used it. Where /proc is not
// mounted, the descriptors are tried one by one, up to 65,536 of them.
std::optional<RegularFile> openRegularFile(const std::string& path);

// All bytes of such a file. Nothing also when there are more than `limitBytes`.
std::optional<std::vector<char>> readRegularFile(const std::string& path, std::uint64_t limitBytes);

}  // namespace norvast
