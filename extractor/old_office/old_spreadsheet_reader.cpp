#include "extractor/old_office/old_spreadsheet_reader.h"

#include <freexl.h>
#include <iconv.h>

#include <array>
#include <charconv>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "document/table_row.h"
#include "extractor/old_office/compound_file.h"
#include "extractor/old_office/workbook_file.h"
#include "extractor/old_office/workbook_records.h"
#include "text/utf8.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;

// Encodings of workbooks, whose converters the C library would load at their first use.
constexpr const char* ENCODINGS[] = {"UTF-16LE", "CP1250", "CP1251", "CP1252", "CP1253",
                                     "CP1254",   "CP1255", "CP1256", "CP1257", "CP1258",
                                     "CP437",    "CP850",  "CP852",  "CP866",  "CP874",
                                     "CP932",    "CP936",  "CP949",  "CP950",  "MACINTOSH"};

struct CloseWorkbook {
  void operator()(const void* workbook) const { (void)freexl_close(workbook); }
};
using Workbook = std::unique_ptr<const void, CloseWorkbook>;

ReadFailure reasonOf(int error) {
  return error == FREEXL_INSUFFICIENT_MEMORY ? ReadFailure::tooLarge : ReadFailure::decodingFailed;
}

unsigned int sheetCount(const Workbook& workbook) {
  unsigned int count = 0;
  (void)freexl_get_info(workbook.get(), FREEXL_BIFF_SHEET_COUNT, &count);  // leaves 0 if it fails
  return count;
}

std::string shown(double number) {
  std::array<char, 32> digits{};
  char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  return {digits.data(), end};
}

std::string shown(const FreeXL_CellValue& cell) {
  switch (cell.type) {
    case FREEXL_CELL_INT:
      return std::to_string(cell.value.int_value);
    case FREEXL_CELL_DOUBLE:
      return shown(cell.value.double_value);
    case FREEXL_CELL_NULL:
      return {};
    default:
      return cell.value.text_value == nullptr ? "" : repairUtf8(cell.value.text_value);
  }
}

void addSheet(const Workbook& workbook, unsigned short sheet, DocumentBuilder& document) {
  const char* name = nullptr;
  if (freexl_get_worksheet_name(workbook.get(), sheet, &name) == FREEXL_OK && name != nullptr) {
    document.add(Kind::part, name);
  }
  unsigned int rows = 0;
  unsigned short columns = 0;
  if (freexl_select_active_worksheet(workbook.get(), sheet) != FREEXL_OK ||
      freexl_worksheet_dimensions(workbook.get(), &rows, &columns) != FREEXL_OK) {
    return;
  }
  TableRow row;
  for (unsigned int line = 0; line < rows && !document.isFull(); ++line) {
    for (unsigned short column = 0; column < columns; ++column) {
      FreeXL_CellValue cell{};
      row.startCell();
      if (freexl_get_cell_value(workbook.get(), line, column, &cell) == FREEXL_OK) {
        row.add(shown(cell));
      }
    }
    row.finish(document);
  }
}

}  // namespace

void prepareOldSpreadsheet() {
  CompoundFile::prepare();
  // Never closed, so that what they loaded stays.
  for (const char* encoding : ENCODINGS) (void)iconv_open("UTF-8", encoding);
}

ReadDocument readOldSpreadsheet(std::string_view bytes, std::size_t limitCharacters) {
  const auto file = CompoundFile::open(bytes);
  if (!file) return ReadFailure::decodingFailed;
  auto records = file->stream("Workbook");
  if (!records) records = file->stream("Book");
  if (!records) return ReadFailure::decodingFailed;
  if (isEncryptedWorkbook(*records)) return ReadFailure::encrypted;
  const WorkbookBytes repacked(repackedWorkbook(std::move(*records)));
  const void* opened = nullptr;
  const int error = freexl_open(WORKBOOK_NAME, &opened);
  const Workbook workbook(opened);
  if (error != FREEXL_OK || !workbook) return reasonOf(error);
  DocumentBuilder document("Excel 97", limitCharacters);
  file->addProperties(document);
  const unsigned int sheets = sheetCount(workbook);
  for (unsigned int sheet = 0; sheet < sheets && !document.isFull(); ++sheet) {
    addSheet(workbook, static_cast<unsigned short>(sheet), document);
  }
  return document.take();
}

}  // namespace norvast::extractor
