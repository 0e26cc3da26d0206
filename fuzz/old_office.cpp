// Any bytes, in the readers of older office programs' files that look into them themselves. Word
// files are left to a library.
#include "extractor/old_office/compound_file.h"
#include "extractor/old_office/old_presentation_reader.h"
#include "extractor/old_office/old_spreadsheet_reader.h"
#include "extractor/old_office/outlook_reader.h"
#include "fuzz/document_rules.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace norvast;
  using namespace norvast::extractor;
  constexpr std::size_t LIMIT = 2000;
  static const bool IS_PREPARED = (CompoundFile::prepare(), true);
  mustHold(IS_PREPARED);
  mustKeepTheRules(readOldPresentation(textOf(bytes, size), LIMIT), LIMIT);
  mustKeepTheRules(readOutlookMail(textOf(bytes, size), LIMIT), LIMIT);
  mustKeepTheRules(readOldSpreadsheet(textOf(bytes, size), LIMIT), LIMIT);
  return 0;
}
