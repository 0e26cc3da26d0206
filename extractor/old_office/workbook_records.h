// Workbook records: walks the records of which the stream of an old workbook consists.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace norvast::extractor {

class WorkbookRecords {
 public:
  // Stands before the first record of the stream, which must outlive the walk. Any bytes do.
  explicit WorkbookRecords(std::string_view stream) : stream_(stream) {}

  // Goes to the next record. False when no whole header is left.
  bool next();

  // The current record: where it starts, its type, and its content, cut where the stream ends.
  std::size_t start() const { return start_; }
  std::uint32_t type() const;
  std::string_view content() const;

  // The content, and that of the records behind it that continue it.
  std::vector<std::string_view> pieces() const;

  // True when the current record begins a part of the workbook, such as a sheet.
  bool isStartOfPart() const;

 private:
  std::string_view stream_;
  std::size_t start_ = 0;
  std::size_t behind_ = 0;
};

inline constexpr std::uint32_t END_OF_PART = 0x000A;  // [MS-XLS] 2.4.103, EOF

}  // namespace norvast::extractor
