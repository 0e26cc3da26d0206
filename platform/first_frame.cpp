#include "platform/first_frame.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace norvast {
namespace {

// A little-endian number of `count` bytes; 0 where there are fewer.
std::uint32_t number(std::string_view bytes, std::size_t at, std::size_t count) {
  if (at > bytes.size() || bytes.size() - at < count) return 0;
  std::uint32_t value = 0;
  for (std::size_t index = count; index > 0; --index) {
    value = (value << 8) | static_cast<unsigned char>(bytes[at + index - 1]);
  }
  return value;
}

std::string littleEndian(std::uint32_t value, std::size_t count) {
  std::string bytes;
  for (std::size_t index = 0; index < count; ++index, value >>= 8) {
    bytes.push_back(static_cast<char>(value & 0xFF));
  }
  return bytes;
}

// GIF: header (6 bytes), screen (7), colour table, then blocks: extensions 0x21 LABEL, pictures
// 0x2C with a descriptor (9), a colour table and a code size (1), both followed by their data.

constexpr char GIF_EXTENSION = 0x21;
constexpr char GIF_PICTURE = 0x2C;
constexpr char GIF_TRAILER = 0x3B;

std::size_t gifColourTableSize(std::uint32_t flags) {
  return (flags & 0x80U) == 0 ? 0 : std::size_t{3} << ((flags & 7U) + 1);
}

// Behind the data at `at`: parts that begin with their length, the last one of length 0.
std::size_t behindGifData(std::string_view bytes, std::size_t at) {
  while (at < bytes.size()) {
    const std::size_t length = number(bytes, at, 1);
    at += 1 + length;
    if (length == 0) break;
  }
  return at;
}

// RIFF: chunks of a name (4 bytes), a length (4), that many bytes, and a filler to an even length.

struct Chunk {
  std::string_view name;
  std::string_view content;
  std::string_view whole;
};

std::optional<Chunk> takeChunk(std::string_view& bytes) {
  constexpr std::size_t HEADER = 8;
  if (bytes.size() < HEADER) return std::nullopt;
  const std::size_t length = number(bytes, 4, 4);
  if (length > bytes.size() - HEADER) return std::nullopt;
  const std::size_t size = HEADER + length + length % 2;
  const Chunk chunk{bytes.substr(0, 4), bytes.substr(HEADER, length), bytes.substr(0, size)};
  bytes.remove_prefix(chunk.whole.size());
  return chunk;
}

std::string riffChunk(std::string_view name, std::string_view content) {
  std::string chunk(name);
  chunk.append(littleEndian(static_cast<std::uint32_t>(content.size()), 4)).append(content);
  if (content.size() % 2 != 0) chunk.push_back('\0');
  return chunk;
}

// `frame` has x, y, width - 1, height - 1 and duration (3 bytes each), flags (1), then chunks.
std::string webpOfFrame(std::string_view frame) {
  constexpr std::size_t FRAME_HEADER = 16;
  constexpr std::size_t SIZE_AT = 6;
  constexpr std::uint32_t HAS_ALPHA = 0x10;
  if (frame.size() < FRAME_HEADER) return {};
  std::string extended = littleEndian(HAS_ALPHA, 4);
  extended.append(frame.substr(SIZE_AT, 6));
  return riffChunk(
      "RIFF",
      std::string("WEBP").append(riffChunk("VP8X", extended)).append(frame.substr(FRAME_HEADER)));
}

}  // namespace

std::string firstGifFrame(std::string_view bytes) {
  constexpr std::size_t BLOCKS_AT = 13;
  std::size_t at = BLOCKS_AT + gifColourTableSize(number(bytes, 10, 1));
  while (at < bytes.size() && bytes[at] == GIF_EXTENSION) at = behindGifData(bytes, at + 2);
  if (at >= bytes.size() || bytes[at] != GIF_PICTURE) return std::string(bytes);
  at = behindGifData(bytes, at + 11 + gifColourTableSize(number(bytes, at + 9, 1)));
  return std::string(bytes.substr(0, at)).append(1, GIF_TRAILER);
}

std::string firstWebpFrame(std::string_view bytes) {
  constexpr std::size_t CHUNKS_AT = 12;
  std::string_view rest = bytes.substr(std::min(bytes.size(), CHUNKS_AT));
  while (const auto chunk = takeChunk(rest)) {
    if (chunk->name == "ANMF") return webpOfFrame(chunk->content);
  }
  return std::string(bytes);
}

}  // namespace norvast
