#include "extractor/old_office_kinds.h"

#include <algorithm>
#include <iterator>

#include "extractor/compound_file.h"
#include "extractor/old_office_reader.h"
#include "extractor/old_presentation_reader.h"
#include "extractor/old_spreadsheet_reader.h"
#include "extractor/old_word_reader.h"
#include "extractor/outlook_reader.h"

namespace norvast {
namespace {

constexpr DocumentKind KINDS[] = {
    {"old-word", readOldWord, prepareOldWord},
    {"old-spreadsheet", readOldSpreadsheet, prepareOldSpreadsheet},
    {"old-presentation", readOldPresentation, CompoundFile::prepare},
    {"old-office", readOldOffice, prepareOldOffice},
    {"old-mail", readOutlookMail, CompoundFile::prepare},
};

}  // namespace

const DocumentKind* oldOfficeKind(std::string_view name) {
  const auto* kind = std::find_if(std::begin(KINDS), std::end(KINDS),
                                  [name](const DocumentKind& each) { return each.name == name; });
  return kind == std::end(KINDS) ? nullptr : kind;
}

}  // namespace norvast
