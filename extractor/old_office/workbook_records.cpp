#include "extractor/old_office/workbook_records.h"

#include <algorithm>
#include <iterator>

#include "platform/byte_order.h"

namespace norvast::extractor {
namespace {

// [MS-XLS] 2.1.4, a record, with numbers that begin with their lowest byte:
//   offset  length
//        0       2  type
//        2       2  length of the content in bytes
//        4          content
constexpr std::size_t HEADER_BYTES = 4;

// [MS-XLS] 2.4.58: goes on with the content of the record before it.
constexpr std::uint32_t CONTINUE = 0x003C;

// BOF, of Excel 2, 3 and 4, and of all later ones ([MS-XLS] 2.4.21).
constexpr std::uint32_t STARTS[] = {0x0009, 0x0209, 0x0409, 0x0809};

}  // namespace

bool WorkbookRecords::next() {
  if (behind_ > stream_.size() || stream_.size() - behind_ < HEADER_BYTES) return false;
  start_ = behind_;
  behind_ = start_ + HEADER_BYTES + content().size();
  return true;
}

std::uint32_t WorkbookRecords::type() const { return littleEndianAt(stream_, start_, 2); }

std::string_view WorkbookRecords::content() const {
  return stream_.substr(start_ + HEADER_BYTES, littleEndianAt(stream_, start_ + 2, 2));
}

std::vector<std::string_view> WorkbookRecords::pieces() const {
  std::vector<std::string_view> pieces = {content()};
  WorkbookRecords rest = *this;
  while (rest.next() && rest.type() == CONTINUE) pieces.push_back(rest.content());
  return pieces;
}

bool WorkbookRecords::isStartOfPart() const {
  return std::find(std::begin(STARTS), std::end(STARTS), type()) != std::end(STARTS);
}

}  // namespace norvast::extractor
