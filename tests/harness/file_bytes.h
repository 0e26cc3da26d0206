// File bytes: all that a file holds, for tests.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace norvast {

// Empty when it cannot be read.
inline std::string fileBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace norvast
