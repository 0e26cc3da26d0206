#include "extractor/compound_writing.h"

#include <cstddef>
#include <cstdint>

namespace norvast {
namespace {

// Of version 4, in which the header names the table's sectors for 446 MB.
constexpr std::size_t SECTOR_BYTES = 4096;
constexpr std::size_t NUMBERS_A_SECTOR = SECTOR_BYTES / 4;
constexpr std::size_t TABLE_SECTORS_IN_HEADER = 109;
constexpr std::size_t NAME_BYTES = 64;

// What stands for no sector or entry, the last sector of a stream, and a sector of the table.
constexpr std::uint32_t NONE = 0xFFFFFFFF;
constexpr std::uint32_t LAST = 0xFFFFFFFE;
constexpr std::uint32_t OF_TABLE = 0xFFFFFFFD;

constexpr std::uint32_t STREAM_TYPE = 2;
constexpr std::uint32_t ROOT_TYPE = 5;

// Appends the number in so many bytes, the least significant first.
void append(std::string& into, std::uint32_t number, std::size_t bytes = 4) {
  for (std::size_t byte = 0; byte < bytes; ++byte) {
    into += static_cast<char>(number >> (8 * byte) & 0xFF);
  }
}

void fillSector(std::string& bytes, char with) {
  bytes.resize((bytes.size() + SECTOR_BYTES - 1) / SECTOR_BYTES * SECTOR_BYTES, with);
}

// [MS-CFB] 2.2. The table begins with sector 0, the directory is the one behind it.
std::string header(std::uint32_t tableSectors) {
  std::string bytes = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
  bytes.append(16, '\0');
  append(bytes, 0x3E, 2);  // minor and major version
  append(bytes, 4, 2);
  append(bytes, 0xFFFE, 2);  // byte order
  append(bytes, 12, 2);      // sectors of 2^12 bytes, small ones of 2^6
  append(bytes, 6, 2);
  bytes.append(6, '\0');
  append(bytes, 1);  // sectors of the directory
  append(bytes, tableSectors);
  append(bytes, tableSectors);  // the first of the directory
  append(bytes, 0);
  append(bytes, 4096);  // streams below are small
  append(bytes, LAST);  // no table of small sectors
  append(bytes, 0);
  append(bytes, LAST);  // no more sectors of the table than these
  append(bytes, 0);
  for (std::uint32_t at = 0; at < TABLE_SECTORS_IN_HEADER; ++at) {
    append(bytes, at < tableSectors ? at : NONE);
  }
  fillSector(bytes, '\0');
  return bytes;
}

std::string table(std::uint32_t tableSectors, std::uint32_t streamSectors) {
  std::string bytes;
  for (std::uint32_t at = 0; at < tableSectors; ++at) append(bytes, OF_TABLE);
  append(bytes, LAST);  // the directory
  const std::uint32_t end = tableSectors + 1 + streamSectors;
  for (std::uint32_t at = tableSectors + 2; at < end; ++at) append(bytes, at);
  append(bytes, LAST);
  fillSector(bytes, '\xFF');
  return bytes;
}

// [MS-CFB] 2.6.
void appendEntry(std::string& into, std::string_view name, std::uint32_t type, std::uint32_t child,
                 std::uint32_t first, std::uint32_t sizeBytes) {
  const std::size_t start = into.size();
  for (const char character : name) into += {character, '\0'};
  into.resize(start + NAME_BYTES);
  append(into, static_cast<std::uint32_t>(2 * name.size() + 2), 2);
  append(into, type, 1);
  append(into, 1, 1);  // black, as a tree's root is
  append(into, NONE);  // nothing beside it
  append(into, NONE);
  append(into, child);
  into.append(36, '\0');
  append(into, first);
  append(into, sizeBytes);
  append(into, 0);
}

}  // namespace

std::string compoundFileOf(std::string_view name, std::string_view stream) {
  const std::size_t streamSectors = (stream.size() + SECTOR_BYTES - 1) / SECTOR_BYTES;
  // Each of the table's sectors stands in it, too, as does the one of the directory.
  const std::size_t tableSectors =
      (streamSectors + 1 + NUMBERS_A_SECTOR - 2) / (NUMBERS_A_SECTOR - 1);
  std::string bytes = header(static_cast<std::uint32_t>(tableSectors));
  bytes +=
      table(static_cast<std::uint32_t>(tableSectors), static_cast<std::uint32_t>(streamSectors));
  appendEntry(bytes, "Root Entry", ROOT_TYPE, 1, LAST, 0);
  appendEntry(bytes, name, STREAM_TYPE, NONE, static_cast<std::uint32_t>(tableSectors + 1),
              static_cast<std::uint32_t>(stream.size()));
  fillSector(bytes, '\0');
  bytes += stream;
  fillSector(bytes, '\0');
  return bytes;
}

}  // namespace norvast
