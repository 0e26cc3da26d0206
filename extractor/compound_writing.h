// Compound writing: one stream as a compound file ([MS-CFB]), for libraries that take no less.
#pragma once

#include <string>
#include <string_view>

namespace norvast {

// The name is ASCII, of 31 characters at the most. The stream has 4096 bytes at least, and 400 MB
// at the most.
std::string compoundFileOf(std::string_view name, std::string_view stream);

}  // namespace norvast
