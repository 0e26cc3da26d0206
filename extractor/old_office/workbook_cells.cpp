#include "extractor/old_office/workbook_cells.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "document/reading_bounds.h"
#include "document/table_row.h"
#include "extractor/old_office/workbook_records.h"
#include "platform/byte_order.h"

namespace norvast::extractor {
namespace {

// Records of cells begin with the row (2 bytes), the column (2) and the number of the cell's format
// (2); what follows begins at 6. In Excel 2 that number is one of three bytes, and what follows
// begins at 7. Types, [MS-XLS] sections, and what follows with its length in bytes:
constexpr std::uint32_t NUMBER = 0x0203;     // 2.4.180: an IEEE double (8)
constexpr std::uint32_t RK = 0x027E;         // 2.4.220: a number in short (4)
constexpr std::uint32_t MUL_RK = 0x00BD;     // 2.4.175: per column a format (2) and such a number
constexpr std::uint32_t LABEL = 0x0204;      // 2.4.148: a text with a length of two bytes
constexpr std::uint32_t RSTRING = 0x00D6;    // the same with formats behind it, up to Excel 95
constexpr std::uint32_t LABEL_SST = 0x00FD;  // 2.4.149: the number of a shared text (4)
constexpr std::uint32_t BOOL_ERR = 0x0205;   // 2.4.24: a value (1), whether it is an error (1)
constexpr std::uint32_t FORMULA = 0x0006;    // 2.4.127: its last result (8), and the formula
constexpr std::uint32_t EXCEL3_FORMULA = 0x0206;
constexpr std::uint32_t EXCEL4_FORMULA = 0x0406;
constexpr std::uint32_t STRING = 0x0207;  // 2.4.268: the text that the formula before it gave

// Excel 2: a whole number (2), and texts with a length of one byte.
constexpr std::uint32_t EXCEL2_INTEGER = 0x0002;
constexpr std::uint32_t EXCEL2_NUMBER = 0x0003;
constexpr std::uint32_t EXCEL2_LABEL = 0x0004;
constexpr std::uint32_t EXCEL2_BOOL_ERR = 0x0005;
constexpr std::uint32_t EXCEL2_STRING = 0x0007;

double doubleAt(std::string_view bytes, std::size_t at) {
  const std::uint64_t high = littleEndianAt(bytes, at + 4, 4);
  return std::bit_cast<double>((high << 32) | littleEndianAt(bytes, at, 4));
}

// RkNumber in [MS-XLS]: bit 0 says that it is a hundred times the number, bit 1 that the other 30
// bits are a whole number with a sign; else they are the first 30 of a double.
double shortNumber(std::uint32_t bits) {
  constexpr std::uint32_t FLAGS = 3;
  const bool isWhole = (bits & 2) != 0;
  const double number = isWhole ? static_cast<double>(static_cast<std::int32_t>(bits) >> 2)
                                : std::bit_cast<double>(std::uint64_t{bits & ~FLAGS} << 32);
  return (bits & 1) != 0 ? number / 100 : number;
}

std::string truthText(std::uint32_t value) { return value != 0 ? "TRUE" : "FALSE"; }

struct Cell {
  std::uint32_t row = 0;
  std::uint32_t column = 0;
  const std::string* shared = nullptr;  // one of the shared texts, instead of a text of its own
  std::string text;

  bool isAt(const Cell& other) const { return row == other.row && column == other.column; }
  bool isBefore(const Cell& other) const {
    return row != other.row ? row < other.row : column < other.column;
  }
};

class Cells {
 public:
  explicit Cells(const WorkbookGlobals& globals)
      : globals_(globals), valueAt_(globals.version == WorkbookVersion::excel2 ? 7 : 6) {}

  void take(const WorkbookRecords& record) {
    const std::string_view content = record.content();
    switch (record.type()) {
      case EXCEL2_INTEGER:
        return addNumber(content, littleEndianAt(content, valueAt_, 2));
      case EXCEL2_NUMBER:
      case NUMBER:
        return addNumber(content, doubleAt(content, valueAt_));
      case RK:
        return addNumber(content, shortNumber(littleEndianAt(content, valueAt_, 4)));
      case MUL_RK:
        return addNumbers(content);
      case EXCEL2_LABEL:
        return add(content, workbookText(record.pieces(), valueAt_, 1, globals_.textForm));
      case LABEL:
      case RSTRING:
        return add(content, workbookText(record.pieces(), valueAt_, 2, globals_.textForm));
      case LABEL_SST:
        return addShared(content);
      case EXCEL2_BOOL_ERR:
      case BOOL_ERR:
        if (littleEndianAt(content, valueAt_ + 1, 1) != 0) return;
        return add(content, truthText(littleEndianAt(content, valueAt_, 1)));
      case FORMULA:
      case EXCEL3_FORMULA:
      case EXCEL4_FORMULA:
        return addResult(content);
      case EXCEL2_STRING:
        return setResult(workbookText(record.pieces(), 0, 1, globals_.textForm));
      case STRING:
        return setResult(workbookText(record.pieces(), 0, 2, globals_.textForm));
      default:
        return;
    }
  }

  // The last one counts where several are in one place.
  void addRows(DocumentBuilder& document) {
    std::stable_sort(cells_.begin(), cells_.end(),
                     [](const Cell& one, const Cell& other) { return one.isBefore(other); });
    TableRow row;
    for (std::size_t at = 0; at < cells_.size() && !document.isFull(); ++at) {
      const Cell& cell = cells_[at];
      const bool isLast = at + 1 == cells_.size();
      if (!isLast && cell.isAt(cells_[at + 1])) continue;
      row.startCell();
      row.add(cell.shared != nullptr ? *cell.shared : cell.text);
      if (isLast || cells_[at + 1].row != cell.row) row.finish(document);
    }
  }

 private:
  void add(std::string_view content, std::string text) {
    if (cells_.size() >= MOST_TABLE_ENTRIES) return;
    cells_.push_back(
        {littleEndianAt(content, 0, 2), littleEndianAt(content, 2, 2), nullptr, std::move(text)});
  }

  // In Excel 2, at 5, the lower six bits of the second of three bytes.
  NumberFormat formatOf(std::string_view content) const {
    return format(globals_.version == WorkbookVersion::excel2 ? littleEndianAt(content, 5, 1) & 0x3F
                                                              : littleEndianAt(content, 4, 2));
  }

  NumberFormat format(std::size_t number) const {
    return number < globals_.formats.size() ? globals_.formats[number] : NumberFormat();
  }

  std::string shown(double number, const NumberFormat& format) const {
    return std::isfinite(number) ? shownNumber(number, format, globals_.dayCount) : std::string();
  }

  void addNumber(std::string_view content, double number) {
    add(content, shown(number, formatOf(content)));
  }

  // MulRk, [MS-XLS] 2.4.175: row (2), first column (2), then 6 bytes for each column, and behind
  // them the last column (2).
  void addNumbers(std::string_view content) {
    constexpr std::size_t COLUMN_BYTES = 6;
    const std::uint32_t row = littleEndianAt(content, 0, 2);
    std::uint32_t column = littleEndianAt(content, 2, 2);
    for (std::size_t at = 4; at + COLUMN_BYTES <= content.size(); at += COLUMN_BYTES, ++column) {
      if (cells_.size() >= MOST_TABLE_ENTRIES) return;
      const double number = shortNumber(littleEndianAt(content, at + 2, 4));
      cells_.push_back(
          {row, column, nullptr, shown(number, format(littleEndianAt(content, at, 2)))});
    }
  }

  void addShared(std::string_view content) {
    const std::size_t index = littleEndianAt(content, valueAt_, 4);
    if (index >= globals_.sharedTexts.size() || cells_.size() >= MOST_TABLE_ENTRIES) return;
    add(content, {});
    cells_.back().shared = &globals_.sharedTexts[index];
  }

  // FormulaValue, [MS-XLS] 2.5.133: a double, unless its last two bytes are FFFF. Then at 0 the
  // kind: 0 a text in a record of its own, 1 true or false, 2 an error (1), and at 2 its value (1).
  void addResult(std::string_view content) {
    constexpr std::uint32_t NO_NUMBER = 0xFFFF;
    constexpr std::uint32_t TRUTH = 1;
    if (littleEndianAt(content, valueAt_ + 6, 2) != NO_NUMBER) {
      return addNumber(content, doubleAt(content, valueAt_));
    }
    const std::uint32_t kind = littleEndianAt(content, valueAt_, 1);
    const std::uint32_t value = littleEndianAt(content, valueAt_ + 2, 1);
    add(content, kind == TRUTH ? truthText(value) : std::string());
  }

  // Between a formula and its text stand at most records of no cell.
  void setResult(std::string text) {
    if (!cells_.empty() && cells_.back().shared == nullptr && cells_.back().text.empty()) {
      cells_.back().text = std::move(text);
    }
  }

  const WorkbookGlobals& globals_;
  std::size_t valueAt_;
  std::vector<Cell> cells_;
};

}  // namespace

void addSheetRows(std::string_view records, const WorkbookGlobals& globals,
                  DocumentBuilder& document) {
  Cells cells(globals);
  std::size_t depth = 0;
  for (WorkbookRecords record(records); record.next();) {
    if (record.isStartOfPart()) ++depth;
    if (depth == 0) return;
    if (record.type() == END_OF_PART && --depth == 0) break;
    if (depth == 1) cells.take(record);
  }
  cells.addRows(document);
}

}  // namespace norvast::extractor
