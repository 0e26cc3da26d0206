// Leading bytes: what an open file begins with.
#pragma once

#include <cstddef>
#include <string>

#include "platform/descriptor.h"

namespace norvast {

// The next bytes of the file, `limit` of them or as many as there are. None when a read fails, even
// behind good ones.
std::string leadingBytes(const Descriptor& file, std::size_t limit);

}  // namespace norvast
