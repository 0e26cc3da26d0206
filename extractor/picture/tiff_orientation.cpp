#include "extractor/picture/tiff_orientation.h"

#include <cstddef>
#include <cstdint>

#include "platform/byte_order.h"

namespace norvast::extractor {

void dropTiffOrientation(std::string& bytes) {
  // Byte order (2), 42 (2), where the first page's directory lies (4): the number of its entries
  // (2), then each entry: tag (2), type (2), count (4), value (4, a short one in the first two).
  constexpr std::size_t ENTRY = 12;
  constexpr std::uint32_t ORIENTATION = 274;
  const bool isBig = bytes.starts_with("MM");
  const auto number = [&](std::size_t at, std::size_t count) {
    return isBig ? bigEndianAt(bytes, at, count) : littleEndianAt(bytes, at, count);
  };
  if ((!isBig && !bytes.starts_with("II")) || number(2, 2) != 42) return;
  const std::size_t directory = number(4, 4);
  const std::size_t entries = number(directory, 2);
  for (std::size_t entry = 0; entry < entries; ++entry) {
    const std::size_t at = directory + 2 + entry * ENTRY;
    if (number(at, 2) != ORIENTATION || bytes.size() < at + ENTRY) continue;
    bytes[at + 8] = isBig ? 0 : 1;
    bytes[at + 9] = isBig ? 1 : 0;
  }
}

}  // namespace norvast::extractor
