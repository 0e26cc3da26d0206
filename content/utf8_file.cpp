#include "content/utf8_file.h"

#include <string_view>

#include "content/leading_bytes.h"
#include "text/utf8.h"

namespace norvast {
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
