#include "content/leading_bytes.h"

#include <algorithm>
#include <span>

namespace norvast {
namespace {

constexpr std::size_t MOST_BYTES_A_READ = std::size_t{1} << 16;

}  // namespace

std::string leadingBytes(const Descriptor& file, std::size_t limit) {
  std::string bytes;
  while (bytes.size() < limit) {
    const std::size_t start = bytes.size();
    bytes.resize(start + std::min(limit - start, MOST_BYTES_A_READ));
    const auto count = file.readAtOnce(std::span(bytes).subspan(start));
    if (!count) return {};
    bytes.resize(start + *count);
    if (*count == 0) break;
  }
  return bytes;
}

}  // namespace norvast
