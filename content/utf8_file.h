// UTF-8 file: the leading text of a file that is plain text.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/regular_file.h"

namespace norvast {

// At most the first `limitBytes` of the file, which must be UTF-8: unchanged, a byte-order mark
// included. A character that the limit cuts is left out. Nothing when the bytes are not valid in
// any other place, when there are none, or when they cannot be read.
std::optional<std::string> leadingUtf8(const RegularFile& file, std::size_t limitBytes);

}  // namespace norvast
