// Workbook records: the stream of records of an old workbook ([MS-XLS] 2.1.4), and what FreeXL
// stumbles over in it.
#pragma once

#include <string>
#include <string_view>

namespace norvast::extractor {

// Whether the stream says that what follows is encrypted.
bool isEncryptedWorkbook(std::string_view stream);

// The same workbook in the form that FreeXL reads: without charts within sheets and empty texts in
// cells, with the last results in the place of formulas, each sheet as large as its cells say, and
// the shared texts as rewrittenSharedTexts gives them. Any bytes do.
std::string readableRecords(std::string stream);

}  // namespace norvast::extractor
