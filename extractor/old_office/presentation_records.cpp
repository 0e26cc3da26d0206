#include "extractor/old_office/presentation_records.h"

#include <algorithm>

#include "document/reading_bounds.h"
#include "platform/byte_order.h"

namespace norvast::extractor {
namespace {

constexpr std::size_t HEADER_BYTES = 8;
constexpr std::uint32_t CONTAINER = 0xF;
constexpr std::uint32_t EDIT = 0x0FF5;
constexpr std::uint32_t DIRECTORY = 0x1772;

std::optional<PresentationRecord> recordAt(std::string_view stream, std::size_t position) {
  if (position >= stream.size()) return std::nullopt;
  stream.remove_prefix(position);
  return nextRecord(stream);
}

}  // namespace

std::optional<PresentationRecord> nextRecord(std::string_view& bytes) {
  if (bytes.size() < HEADER_BYTES) return std::nullopt;
  const std::uint32_t version = littleEndianAt(bytes, 0, 2);
  const std::size_t size = littleEndianAt(bytes, 4, 4);
  const PresentationRecord record{littleEndianAt(bytes, 2, 2), version >> 4,
                                  (version & CONTAINER) == CONTAINER,
                                  bytes.substr(HEADER_BYTES, size)};
  bytes.remove_prefix(HEADER_BYTES + record.content.size());
  return record;
}

std::optional<PresentationRecord> childOfType(std::string_view bytes, std::uint32_t type) {
  while (const auto record = nextRecord(bytes)) {
    if (record->type == type) return record;
  }
  return std::nullopt;
}

PresentationIndex::PresentationIndex(std::string_view currentUser, std::string_view stream)
    : stream_(stream) {
  std::size_t position = littleEndianAt(currentUser, 16, 4);
  for (std::size_t edits = 0; edits < MOST_EDITS; ++edits) {
    const auto edit = recordAt(stream, position);
    if (!edit || edit->type != EDIT) return;
    if (documentNumber_ == 0) documentNumber_ = littleEndianAt(edit->content, 16, 4);
    const auto directory = recordAt(stream, littleEndianAt(edit->content, 12, 4));
    if (directory && directory->type == DIRECTORY) addPositions(directory->content);
    position = littleEndianAt(edit->content, 8, 4);
    if (position == 0) return;
  }
}

// Runs of numbers that follow each other: the first (20 bits) with their count, then the positions.
void PresentationIndex::addPositions(std::string_view directory) {
  for (std::size_t at = 0; at + 4 <= directory.size();) {
    const std::uint32_t run = littleEndianAt(directory, at, 4);
    at += 4;
    const std::uint32_t first = run & 0xFFFFF;
    for (std::uint32_t index = 0; index < run >> 20 && at + 4 <= directory.size(); ++index) {
      positions_.emplace(first + index, littleEndianAt(directory, at, 4));
      at += 4;
    }
  }
}

std::optional<PresentationRecord> PresentationIndex::record(std::uint32_t number) const {
  const auto position = positions_.find(number);
  if (position == positions_.end()) return std::nullopt;
  return recordAt(stream_, position->second);
}

}  // namespace norvast::extractor
