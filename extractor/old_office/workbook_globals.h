// Workbook globals: what the records of an old workbook say for all of its sheets.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "document/number_format.h"
#include "extractor/old_office/workbook_texts.h"

namespace norvast::extractor {

enum class WorkbookVersion : std::uint8_t { excel2, excel3, excel4, excel5, excel97 };

struct WorkbookSheet {
  std::string name;          // empty where a workbook is its only sheet
  std::string_view records;  // from its first one on; empty when they are not where they should be
};

struct WorkbookGlobals {
  WorkbookVersion version = WorkbookVersion::excel97;
  bool isEncrypted = false;  // then all that follows may be anything
  DayCount dayCount = DayCount::from1900;
  TextForm textForm;
  std::vector<std::string> sharedTexts;
  std::vector<NumberFormat> formats;  // by the number under which cells know them
  std::vector<WorkbookSheet> sheets;  // in the order in which the program shows them
};

// Returns what the stream says, which must outlive the result; nothing when it does not begin as
// one of a workbook. No two sheets share a record, so that reading all takes a time that grows with
// the stream's length alone.
std::optional<WorkbookGlobals> readWorkbookGlobals(std::string_view stream);

}  // namespace norvast::extractor
