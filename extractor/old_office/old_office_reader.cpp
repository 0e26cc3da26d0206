#include "extractor/old_office/old_office_reader.h"

#include <algorithm>
#include <iterator>

#include "extractor/old_office/compound_file.h"
#include "extractor/old_office/old_presentation_reader.h"
#include "extractor/old_office/old_spreadsheet_reader.h"
#include "extractor/old_office/old_word_reader.h"
#include "extractor/old_office/outlook_reader.h"

namespace norvast::extractor {
namespace {

ReadDocument refuseEncrypted(std::string_view /*bytes*/, std::size_t /*limitCharacters*/) {
  return ReadFailure::encrypted;
}

struct TellingStream {
  const char* name;
  ReadDocument (*read)(std::string_view bytes, std::size_t limitCharacters);
};

// [MS-DOC] 2.1, [MS-XLS] 2.1.2, [MS-PPT] 2.1, [MS-OXMSG] 2.4, [MS-OFFCRYPTO] 2.3.4.4.
constexpr TellingStream STREAMS[] = {
    {"WordDocument", readOldWord},
    {"Workbook", readOldSpreadsheet},
    {"Book", readOldSpreadsheet},
    {"PowerPoint Document", readOldPresentation},
    {"__properties_version1.0", readOutlookMail},
    {"EncryptedPackage", refuseEncrypted},
};

}  // namespace

void prepareOldOffice() { prepareOldWord(); }

ReadDocument readOldOffice(std::string_view bytes, std::size_t limitCharacters) {
  const auto file = CompoundFile::open(bytes);
  if (!file) return ReadFailure::decodingFailed;
  const auto* found =
      std::find_if(std::begin(STREAMS), std::end(STREAMS),
                   [&file](const TellingStream& each) { return file->hasStream(each.name); });
  if (found == std::end(STREAMS)) return ReadFailure::noReader;
  return found->read(bytes, limitCharacters);
}

}  // namespace norvast::extractor
