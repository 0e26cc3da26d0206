// Presentation records: the tree of records in a PowerPoint stream, and which of them are current
// ([MS-PPT] 2.3.1 and 2.1.2). Any bytes do.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>

namespace norvast::extractor {

struct PresentationRecord {
  std::uint32_t type = 0;      // such as 0x03E8, of the document
  std::uint32_t instance = 0;  // what it is of its type
  bool isContainer = false;    // its content is records again
  std::string_view content;    // cut where the stream ends
};

// Takes the first record from the bytes; nothing when they hold none.
std::optional<PresentationRecord> nextRecord(std::string_view& bytes);

// The record of that type among those in `bytes`, not within them.
std::optional<PresentationRecord> childOfType(std::string_view bytes, std::uint32_t type);

// Where the current records stand in the stream, by the numbers under which they know each other.
class PresentationIndex {
 public:
  // Of both streams: what "Current User" says of "PowerPoint Document", which outlives the index.
  PresentationIndex(std::string_view currentUser, std::string_view stream);

  std::optional<PresentationRecord> document() const { return record(documentNumber_); }
  std::optional<PresentationRecord> record(std::uint32_t number) const;

 private:
  void addPositions(std::string_view directory);

  std::string_view stream_;
  std::map<std::uint32_t, std::uint32_t> positions_;  // the newest of each number
  std::uint32_t documentNumber_ = 0;
};

}  // namespace norvast::extractor
