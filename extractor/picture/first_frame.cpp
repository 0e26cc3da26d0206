#include "extractor/picture/first_frame.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/byte_order.h"

namespace norvast::extractor {
namespace {

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
constexpr std::size_t GIF_SCREEN_FLAGS_AT = 10;
constexpr std::size_t GIF_TABLE_AT = 13;
constexpr std::size_t GIF_PICTURE_FLAGS_AT = 9;
constexpr std::size_t GIF_PICTURE_HEAD = 10;
constexpr std::size_t GIF_COLOUR = 3;

std::size_t gifTableSize(std::uint32_t flags) {
  return (flags & 0x80U) == 0 ? 0 : GIF_COLOUR << ((flags & 7U) + 1);
}

// Behind the data at `at`: parts that begin with their length, the last one of length 0.
std::size_t behindGifData(std::string_view bytes, std::size_t at) {
  while (at < bytes.size()) {
    const std::size_t length = littleEndianAt(bytes, at, 1);
    at += 1 + length;
    if (length == 0) break;
  }
  return at;
}

// Where the first picture begins and which colour is transparent in it, as the graphic control
// extension before it says: 0x21 0xF9, length (1), flags (1), delay (2), colour (1).
struct GifPicture {
  std::size_t at = 0;
  std::optional<std::size_t> transparent;
};

std::optional<GifPicture> findGifPicture(std::string_view bytes) {
  GifPicture picture;
  picture.at = GIF_TABLE_AT + gifTableSize(littleEndianAt(bytes, GIF_SCREEN_FLAGS_AT, 1));
  while (picture.at < bytes.size() && bytes[picture.at] == GIF_EXTENSION) {
    const bool hasColour = littleEndianAt(bytes, picture.at + 1, 1) == 0xF9 &&
                           (littleEndianAt(bytes, picture.at + 3, 1) & 1U) != 0;
    if (hasColour) picture.transparent = littleEndianAt(bytes, picture.at + 6, 1);
    picture.at = behindGifData(bytes, picture.at + 2);
  }
  if (picture.at >= bytes.size() || bytes[picture.at] != GIF_PICTURE) return std::nullopt;
  return picture;
}

// The picture's own colour table counts, or else the one of all pictures.
void whitenGifColour(std::string& bytes, std::size_t picture, std::size_t colour) {
  const std::size_t own = gifTableSize(littleEndianAt(bytes, picture + GIF_PICTURE_FLAGS_AT, 1));
  const std::size_t table = own > 0 ? picture + GIF_PICTURE_HEAD : GIF_TABLE_AT;
  const std::size_t size =
      own > 0 ? own : gifTableSize(littleEndianAt(bytes, GIF_SCREEN_FLAGS_AT, 1));
  const std::size_t at = colour * GIF_COLOUR;
  if (at >= size || table + size > bytes.size()) return;
  bytes.replace(table + at, GIF_COLOUR, GIF_COLOUR, '\xFF');
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
  const std::size_t length = littleEndianAt(bytes, 4, 4);
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
  const auto picture = findGifPicture(bytes);
  if (!picture) return std::string(bytes);
  const std::size_t table =
      gifTableSize(littleEndianAt(bytes, picture->at + GIF_PICTURE_FLAGS_AT, 1));
  const std::size_t data = picture->at + GIF_PICTURE_HEAD + table + 1;
  std::string frame(bytes.substr(0, behindGifData(bytes, data)));
  if (picture->transparent) whitenGifColour(frame, picture->at, *picture->transparent);
  return frame.append(1, GIF_TRAILER);
}

std::string firstWebpFrame(std::string_view bytes) {
  constexpr std::size_t CHUNKS_AT = 12;
  std::string_view rest = bytes.substr(std::min(bytes.size(), CHUNKS_AT));
  while (const auto chunk = takeChunk(rest)) {
    if (chunk->name == "ANMF") return webpOfFrame(chunk->content);
  }
  return std::string(bytes);
}

}  // namespace norvast::extractor
