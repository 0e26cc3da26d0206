#include "content/utf8_file.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "text/utf8.h"

namespace norvast {
namespace {

constexpr std::size_t MOST_BYTES_A_READ = std::size_t{1} << 16;

// What there is up to the limit; nothing when a read fails, even behind good ones.
std::string leadingBytes(const Descriptor& file, std::size_t limit) {
  std::string bytes;
  while (bytes.size() < limit) {
    const std::size_t start = bytes.size();
    bytes.resize(start + std::min(limit - start, MOST_BYTES_A_READ));
    const auto count = file.read(std::span(bytes).subspan(start));
    if (!count) return {};
    bytes.resize(start + *count);
    if (*count == 0) break;
  }
  return bytes;
}

}  // namespace

std::optional<std::string> leadingUtf8(const RegularFile& file, std::size_t limitBytes) {
  std::string text = leadingBytes(file.descriptor, limitBytes);
  const std::size_t valid = validUtf8Length(text);
  if (valid < text.size()) {
    // At the very end of the file a half character is as invalid as anywhere.
    const bool cut = text.size() == limitBytes && file.sizeBytes != limitBytes;
    if (!cut || !isCutCharacter(std::string_view(text).substr(valid))) return std::nullopt;
    text.resize(valid);
  }
  if (text.empty()) return std::nullopt;
  return text;
}

}  // namespace norvast
