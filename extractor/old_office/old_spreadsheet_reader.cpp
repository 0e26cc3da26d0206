#include "extractor/old_office/old_spreadsheet_reader.h"

#include <optional>
#include <string>

#include "extractor/old_office/compound_file.h"
#include "extractor/old_office/workbook_cells.h"
#include "extractor/old_office/workbook_globals.h"

namespace norvast::extractor {
namespace {

// [MS-XLS] 2.1.2: the stream of Excel 97 and later, then that of Excel 5 and 95. Before those a
// workbook was a file of records alone.
std::optional<std::string> streamOf(const CompoundFile& file) {
  auto stream = file.stream("Workbook");
  return stream ? std::move(stream) : file.stream("Book");
}

}  // namespace

ReadDocument readOldSpreadsheet(std::string_view bytes, std::size_t limitCharacters) {
  const auto file = CompoundFile::open(bytes);
  const auto stream = file ? streamOf(*file) : std::string(bytes);
  if (!stream) return ReadFailure::decodingFailed;
  const auto globals = readWorkbookGlobals(*stream);
  if (!globals) return ReadFailure::decodingFailed;
  if (globals->isEncrypted) return ReadFailure::encrypted;
  DocumentBuilder document("Excel 97", limitCharacters);
  if (file) file->addProperties(document);
  for (const WorkbookSheet& sheet : globals->sheets) {
    if (document.isFull()) break;
    document.add(DocumentBlock::Kind::part, sheet.name);
    addSheetRows(sheet.records, *globals, document);
  }
  return document.take();
}

}  // namespace norvast::extractor
