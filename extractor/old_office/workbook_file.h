// Workbook file: the bytes that the library for old workbooks opens by a name, without a file.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace norvast::extractor {

// The name under which the current WorkbookBytes are opened, with fopen alone.
inline constexpr const char* WORKBOOK_NAME = "workbook";

// While it lives, fopen gives what it holds under WORKBOOK_NAME, for reading. In a program that
// links this, fopen opens nothing else. One at a time.
class WorkbookBytes {
 public:
  explicit WorkbookBytes(std::string bytes);
  ~WorkbookBytes();
  WorkbookBytes(const WorkbookBytes&) = delete;
  WorkbookBytes& operator=(const WorkbookBytes&) = delete;

 private:
  std::string bytes_;
};

// The stream of records of an old workbook in a compound file of its own, in the form that FreeXL
// reads: it stumbles over streams below 4096 bytes, and over some records (workbook_records.h).
std::string repackedWorkbook(std::string stream);

}  // namespace norvast::extractor
