#include "extractor/old_office/workbook_records.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "extractor/old_office/shared_texts.h"
#include "platform/byte_order.h"

namespace norvast::extractor {
namespace {

// Each record is its type and its length, two bytes each, and that many bytes.
constexpr std::size_t HEADER_BYTES = 4;
constexpr std::uint32_t PASSWORD = 0x002F;
constexpr std::uint32_t SHEET_PLACE = 0x0085;
constexpr std::uint32_t SHEET_START = 0x0809;
constexpr std::uint32_t SHEET_END = 0x000A;
constexpr std::uint32_t SHEET_SIZE = 0x0200;
constexpr std::string_view UNREAD_TYPE("\xFF\0", 2);  // 0x00FF, of a record that speeds others up

// Of cells with something in them, which begin with their row and column.
constexpr std::uint32_t LABEL = 0x0204;
constexpr std::uint32_t FORMATTED_LABEL = 0x00D6;
constexpr std::uint32_t NUMBERS_IN_A_ROW = 0x00BD;  // end with their last column
constexpr std::uint32_t NUMBER = 0x0203;
constexpr std::uint32_t TRUTH = 0x0205;
constexpr std::uint32_t CELLS[] = {LABEL,  FORMATTED_LABEL, NUMBERS_IN_A_ROW, NUMBER, TRUTH,
                                   0x00FD, 0x027E};

// [MS-XLS] 2.4.127, up to the formula itself; 2.4.268, and what may stand between the two.
constexpr std::uint32_t FORMULA = 0x0006;
constexpr std::size_t LEAST_FORMULA_BYTES = 20;
constexpr std::uint32_t FORMULA_TEXT = 0x0207;

// A formula that others refer to, or a table of them.
bool isShared(std::uint32_t type) { return type == 0x04BC || type == 0x0221 || type == 0x0236; }

// The record at a place in a stream, its header included.
std::string_view recordAt(std::string_view stream, std::size_t at) {
  return stream.substr(at, HEADER_BYTES + littleEndianAt(stream, at + 2, 2));
}

std::uint32_t typeOf(std::string_view record) { return littleEndianAt(record, 0, 2); }

bool hasRecord(std::string_view stream, std::size_t at) {
  return at < stream.size() && stream.size() - at >= HEADER_BYTES;
}

void write(std::string& stream, std::size_t at, std::size_t bytes, std::uint32_t number) {
  for (; bytes > 0 && at < stream.size(); --bytes, ++at, number >>= 8) {
    stream[at] = static_cast<char>(number & 0xFF);
  }
}

// Sheets are known by their places in the stream ([MS-XLS] 2.4.28), which the records before the
// first of them tell.
void moveSheets(std::string& stream, std::size_t distance) {
  for (std::size_t at = 0; hasRecord(stream, at); at += recordAt(stream, at).size()) {
    const std::size_t place = at + HEADER_BYTES;
    const std::uint32_t type = typeOf(recordAt(stream, at));
    if (type == SHEET_END) return;
    if (type != SHEET_PLACE) continue;
    write(stream, place, 4,
          littleEndianAt(stream, place, 4) + static_cast<std::uint32_t>(distance));
  }
}

// Writes the table at this place anew.
void rewriteSharedTexts(std::string& stream, std::size_t start) {
  std::vector<std::string_view> contents;
  std::size_t end = start;
  do {
    contents.push_back(recordAt(stream, end).substr(HEADER_BYTES));
    end += recordAt(stream, end).size();
  } while (hasRecord(stream, end) && typeOf(recordAt(stream, end)) == CONTINUE_RECORD);
  std::string table = rewrittenSharedTexts(contents);
  if (table.empty()) table = std::string(UNREAD_TYPE) + std::string(2, '\0');
  stream.replace(start, end - start, table);
  moveSheets(stream, table.size() - (end - start));  // modulo 2^32
}

// [MS-XLS] 2.5.133: a number, unless it ends so; then it begins with the kind of the result.
constexpr std::uint32_t NO_NUMBER = 0xFFFF;
constexpr std::uint32_t TEXT_RESULT = 0;
constexpr std::uint32_t TRUTH_RESULT = 1;

// Makes a label of the formula at `start` and of its text, which stands in a record behind it.
void showText(std::string& stream, std::size_t start) {
  constexpr std::size_t CELL_BYTES = 6;
  std::size_t text = start + recordAt(stream, start).size();
  while (hasRecord(stream, text) && isShared(typeOf(recordAt(stream, text)))) {
    text += recordAt(stream, text).size();
  }
  if (!hasRecord(stream, text) || typeOf(recordAt(stream, text)) != FORMULA_TEXT) return;
  const std::size_t end = text + recordAt(stream, text).size();
  const std::string cell = stream.substr(start + HEADER_BYTES, CELL_BYTES);
  const std::string label = cell + stream.substr(text + HEADER_BYTES, end - text - HEADER_BYTES);
  const std::size_t unread = start + HEADER_BYTES + label.size();
  const std::size_t unreadBytes = end - unread - HEADER_BYTES;
  if (label.size() > MOST_RECORD_BYTES || unreadBytes > MOST_RECORD_BYTES) return;
  stream.replace(start + HEADER_BYTES, label.size(), label);
  write(stream, start, 2, LABEL);
  write(stream, start + 2, 2, static_cast<std::uint32_t>(label.size()));
  stream.replace(unread, 2, UNREAD_TYPE);
  write(stream, unread + 2, 2, static_cast<std::uint32_t>(unreadBytes));
}

// Makes a cell of the formula at this place that holds its last result; FreeXL reads no formulas.
void showResult(std::string& stream, std::size_t start) {
  const std::size_t result = start + HEADER_BYTES + 6;
  if (recordAt(stream, start).size() < HEADER_BYTES + LEAST_FORMULA_BYTES) return;
  const std::uint32_t kind = littleEndianAt(stream, result, 1);
  if (littleEndianAt(stream, result + 6, 2) != NO_NUMBER) {
    write(stream, start, 2, NUMBER);
  } else if (kind == TEXT_RESULT) {
    showText(stream, start);
  } else if (kind == TRUTH_RESULT) {
    write(stream, start, 2, TRUTH);
    write(stream, result, 2, littleEndianAt(stream, result + 2, 1));  // and no error
  }
}

// How far the cells of a sheet reach. What the sheet says of it may be too little, or far too much.
class SheetSize {
 public:
  void take(std::string_view record, std::size_t at) {
    const std::uint32_t type = typeOf(record);
    if (type == SHEET_SIZE) place_ = at;
    if (std::find(std::begin(CELLS), std::end(CELLS), type) == std::end(CELLS)) return;
    const std::size_t column = type == NUMBERS_IN_A_ROW ? record.size() - 2 : HEADER_BYTES + 2;
    rows_ = std::max(rows_, littleEndianAt(record, HEADER_BYTES, 2) + 1);
    columns_ = std::max(columns_, littleEndianAt(record, column, 2) + 1);
  }

  // [MS-XLS] 2.4.90: first and last row, first and last column; rows have two bytes in workbooks
  // before Excel 97.
  void write(std::string& stream) const {
    if (place_ == 0) return;
    const std::size_t start = place_ + HEADER_BYTES;
    const bool isOlder = recordAt(stream, place_).size() < HEADER_BYTES + 14;
    extractor::write(stream, start + (isOlder ? 2 : 4), isOlder ? 2 : 4, rows_);
    extractor::write(stream, start + (isOlder ? 6 : 10), 2, columns_);
  }

 private:
  std::size_t place_ = 0;  // of the record; none is at the start of a workbook
  std::uint32_t rows_ = 0;
  std::uint32_t columns_ = 0;
};

bool isEmptyLabel(std::string_view record) {
  constexpr std::size_t LENGTH_AT = HEADER_BYTES + 6;
  const std::uint32_t type = typeOf(record);
  return (type == LABEL || type == FORMATTED_LABEL) && littleEndianAt(record, LENGTH_AT, 2) == 0;
}

}  // namespace

bool isEncryptedWorkbook(std::string_view stream) {
  for (std::size_t at = 0; hasRecord(stream, at); at += recordAt(stream, at).size()) {
    const std::uint32_t type = typeOf(recordAt(stream, at));
    if (type == PASSWORD || type == SHEET_END) return type == PASSWORD;
  }
  return false;
}

// What is not to be seen keeps its size, as a record of another type.
std::string readableRecords(std::string stream) {
  std::size_t depth = 0;
  bool hasTexts = false;
  SheetSize size;
  for (std::size_t at = 0; hasRecord(stream, at); at += recordAt(stream, at).size()) {
    const std::uint32_t type = typeOf(recordAt(stream, at));
    const bool isTexts = type == SHARED_TEXTS_RECORD;
    if (isTexts && !hasTexts) rewriteSharedTexts(stream, at);
    if (type == SHEET_START) ++depth;
    const bool isChart = depth > 1;
    if (type == SHEET_END && depth > 0) --depth;
    if (isChart || (isTexts && hasTexts) || isEmptyLabel(recordAt(stream, at))) {
      stream.replace(at, 2, UNREAD_TYPE);
    }
    if (type == FORMULA && !isChart) showResult(stream, at);
    hasTexts = hasTexts || isTexts;
    size.take(recordAt(stream, at), at);
    if (depth > 0) continue;
    size.write(stream);
    size = {};
  }
  return stream;
}

}  // namespace norvast::extractor
