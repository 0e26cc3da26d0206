#include "extractor/compound_sectors.h"

#include <algorithm>

#include "platform/byte_order.h"

namespace norvast {
namespace {

constexpr std::string_view SIGNATURE = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr std::size_t HEADER_BYTES = 512;
constexpr std::size_t NUMBER_BYTES = 4;
constexpr std::size_t SMALL_SECTOR_BYTES = 64;

// Where the header says what.
constexpr std::size_t SECTOR_SHIFT = 30;
constexpr std::size_t TABLE_SECTOR_COUNT = 44;
constexpr std::size_t FIRST_OF_DIRECTORY = 48;
constexpr std::size_t FIRST_OF_SMALL_TABLE = 60;
constexpr std::size_t FIRST_OF_MORE_TABLE_SECTORS = 68;
constexpr std::size_t TABLE_SECTORS = 76;

void appendNumbers(std::vector<std::uint32_t>& into, std::string_view bytes) {
  for (std::size_t at = 0; at + NUMBER_BYTES <= bytes.size(); at += NUMBER_BYTES) {
    into.push_back(littleEndianAt(bytes, at, NUMBER_BYTES));
  }
}

}  // namespace

std::optional<CompoundSectors> CompoundSectors::of(std::string_view bytes) {
  if (!bytes.starts_with(SIGNATURE) || bytes.size() < HEADER_BYTES) return std::nullopt;
  const std::uint32_t shift = littleEndianAt(bytes, SECTOR_SHIFT, 2);
  if (shift != 9 && shift != 12) return std::nullopt;
  CompoundSectors sectors(bytes, std::size_t{1} << shift);
  sectors.next_ = sectors.readTable();
  appendNumbers(
      sectors.nextSmall_,
      sectors.chained(littleEndianAt(bytes, FIRST_OF_SMALL_TABLE, NUMBER_BYTES), bytes.size()));
  return sectors;
}

// The header takes the place of one. The last one may be cut.
std::string_view CompoundSectors::sector(std::uint32_t number) const {
  const std::size_t start = (std::size_t{number} + 1) * sectorBytes_;
  return start < bytes_.size() ? bytes_.substr(start, sectorBytes_) : std::string_view();
}

// The header names the first 109; each sector of more of them ends with the number of the next.
CompoundSectors::Table CompoundSectors::tableSectors() const {
  Table numbers;
  appendNumbers(numbers, bytes_.substr(TABLE_SECTORS, HEADER_BYTES - TABLE_SECTORS));
  std::string_view more = sector(littleEndianAt(bytes_, FIRST_OF_MORE_TABLE_SECTORS, NUMBER_BYTES));
  while (more.size() == sectorBytes_ && numbers.size() < mostSectors()) {
    appendNumbers(numbers, more);
    more = sector(numbers.back());
    numbers.pop_back();
  }
  const std::size_t count = littleEndianAt(bytes_, TABLE_SECTOR_COUNT, NUMBER_BYTES);
  numbers.resize(std::min({numbers.size(), count, mostSectors()}));
  return numbers;
}

CompoundSectors::Table CompoundSectors::readTable() const {
  Table table;
  for (const std::uint32_t number : tableSectors()) {
    const std::string_view part = sector(number);
    if (part.size() < sectorBytes_) break;  // what is behind it would be in the wrong place
    appendNumbers(table, part);
  }
  return table;
}

std::string CompoundSectors::chained(std::uint32_t first, std::size_t mostBytes) const {
  std::string content;
  std::uint32_t at = first;
  while (at < next_.size() && content.size() < mostBytes && !sector(at).empty()) {
    content += sector(at);
    at = next_[at];
  }
  return content;
}

std::string CompoundSectors::directory() const {
  return chained(littleEndianAt(bytes_, FIRST_OF_DIRECTORY, NUMBER_BYTES), bytes_.size());
}

void CompoundSectors::setSmallStreams(std::uint32_t first) {
  smallSectors_ = chained(first, bytes_.size());
}

std::optional<std::string> CompoundSectors::stream(std::uint32_t first,
                                                   std::size_t sizeBytes) const {
  std::string content = chained(first, sizeBytes);
  if (content.size() < sizeBytes) return std::nullopt;
  content.resize(sizeBytes);
  return content;
}

std::optional<std::string> CompoundSectors::smallStream(std::uint32_t first,
                                                        std::size_t sizeBytes) const {
  std::string content;
  std::uint32_t at = first;
  while (at < nextSmall_.size() && content.size() < sizeBytes) {
    const std::size_t start = at * SMALL_SECTOR_BYTES;
    if (start >= smallSectors_.size()) break;
    content.append(smallSectors_, start, SMALL_SECTOR_BYTES);
    at = nextSmall_[at];
  }
  if (content.size() < sizeBytes) return std::nullopt;
  content.resize(sizeBytes);
  return content;
}

}  // namespace norvast
