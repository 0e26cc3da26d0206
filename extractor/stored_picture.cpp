#include "extractor/stored_picture.h"

#include <cstddef>
#include <utility>

#include "platform/byte_order.h"

namespace norvast {
namespace {

// PNG: a signature (8 bytes), then chunks: length of the data (4), name (4), data, checksum (4).
constexpr std::string_view PNG_SIGNATURE = "\x89PNG\r\n\x1A\n";
constexpr std::size_t PNG_CHUNK_HEAD = 8;
constexpr std::size_t PNG_CHUNK_AROUND = 12;
constexpr std::size_t PNG_DEPTH_AT = 24;  // in the data of the first chunk: bits a shade
constexpr std::size_t PNG_COLOUR_TYPE_AT = 25;
constexpr std::uint32_t PNG_GREY = 0;

std::uint8_t shadeOf8Bits(std::uint32_t shade, std::uint32_t depth) {
  if (depth == 16) return static_cast<std::uint8_t>(shade >> 8);
  const std::uint32_t most = (1U << depth) - 1;
  return static_cast<std::uint8_t>((shade & most) * 255 / most);
}

}  // namespace

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

std::optional<GreyPng> greyPngWithTransparency(std::string_view bytes) {
  if (!bytes.starts_with(PNG_SIGNATURE) || bigEndianAt(bytes, PNG_COLOUR_TYPE_AT, 1) != PNG_GREY) {
    return std::nullopt;
  }
  const std::uint32_t depth = bigEndianAt(bytes, PNG_DEPTH_AT, 1);
  if (depth == 0 || depth > 16) return std::nullopt;

  std::size_t at = PNG_SIGNATURE.size();
  while (at < bytes.size() && bytes.size() - at > PNG_CHUNK_AROUND) {
    const std::size_t length = bigEndianAt(bytes, at, 4);
    const std::string_view name = bytes.substr(at + 4, 4);
    if (name == "IDAT") return std::nullopt;  // what comes behind it has no effect
    if (name == "tRNS" && length == 2 && bytes.size() - at >= PNG_CHUNK_AROUND + length) {
      const std::uint32_t shade = bigEndianAt(bytes, at + PNG_CHUNK_HEAD, 2);
      std::string opaque(bytes.substr(0, at));
      opaque.append(bytes.substr(at + PNG_CHUNK_AROUND + length));
      return GreyPng{std::move(opaque), shadeOf8Bits(shade, depth)};
    }
    at += PNG_CHUNK_AROUND + length;
  }
  return std::nullopt;
}

}  // namespace norvast
