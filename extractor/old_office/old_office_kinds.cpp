#include "extractor/old_office/old_office_kinds.h"

#include "extractor/old_office/compound_file.h"
#include "extractor/old_office/old_office_reader.h"
#include "extractor/old_office/old_presentation_reader.h"
#include "extractor/old_office/old_spreadsheet_reader.h"
#include "extractor/old_office/old_word_reader.h"
#include "extractor/old_office/outlook_reader.h"

namespace norvast::extractor {
namespace {

constexpr DocumentKind KINDS[] = {
    {"old-word", readOldWord, prepareOldWord},
    {"old-spreadsheet", readOldSpreadsheet, CompoundFile::prepare},
    {"old-presentation", readOldPresentation, CompoundFile::prepare},
    {"old-office", readOldOffice, prepareOldOffice},
    {"old-mail", readOutlookMail, CompoundFile::prepare},
};

}  // namespace

const DocumentKind* oldOfficeKind(std::string_view name) { return kindNamed(KINDS, name); }

}  // namespace norvast::extractor
