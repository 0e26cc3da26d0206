// What all fuzz targets share: the input as text, and a check that no build leaves out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace norvast {

inline std::string_view textOf(const std::uint8_t* bytes, std::size_t size) {
  return {reinterpret_cast<const char*>(bytes), size};
}

inline void mustHold(bool condition) {
  if (!condition) std::abort();
}

}  // namespace norvast
