// Workbook texts: texts in the records of an old workbook, which may go on in further records.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace norvast::extractor {

// How a workbook writes its texts: in units of UTF-16, as Excel 97 and later, or in bytes of an
// encoding, which has a name that decodedFrom knows.
struct TextForm {
  bool isUtf16 = false;
  std::string encoding = "windows-1252";
};

// Returns the text that begins `at` bytes into the first piece with its length, a number of
// `lengthBytes` (1 or 2). Where the pieces end too early the text ends there.
std::string workbookText(std::span<const std::string_view> pieces, std::size_t at,
                         std::size_t lengthBytes, const TextForm& form);

// Returns the table of the texts that cells refer to by number, from the pieces of the record that
// holds it ([MS-XLS] 2.4.265, SST). Where they are cut there are fewer, at most
// MOST_TABLE_ENTRIES.
std::vector<std::string> sharedTexts(std::span<const std::string_view> pieces);

}  // namespace norvast::extractor
