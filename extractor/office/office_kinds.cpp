#include "extractor/office/office_kinds.h"

#include "extractor/office/epub_reader.h"
#include "extractor/office/opendocument_reader.h"
#include "extractor/office/packed_reader.h"
#include "extractor/office/presentation_reader.h"
#include "extractor/office/spreadsheet_reader.h"
#include "extractor/office/word_reader.h"

namespace norvast::extractor {
namespace {

constexpr DocumentKind KINDS[] = {
    {"word", readWord},
    {"spreadsheet", readSpreadsheet},
    {"presentation", readPresentation},
    {"opendocument", readOpenDocument},
    {"epub", readEpub},
    {"packed", readPacked, preparePacked},
};

}  // namespace

const DocumentKind* officeKind(std::string_view name) { return kindNamed(KINDS, name); }

}  // namespace norvast::extractor
