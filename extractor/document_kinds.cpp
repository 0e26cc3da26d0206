#include "extractor/document_kinds.h"

#include <algorithm>
#include <iterator>

#include "extractor/epub_reader.h"
#include "extractor/opendocument_reader.h"
#include "extractor/packed_reader.h"
#include "extractor/presentation_reader.h"
#include "extractor/spreadsheet_reader.h"
#include "extractor/word_reader.h"

namespace norvast {
namespace {

void prepareNothing() {}

constexpr DocumentKind KINDS[] = {
    {"word", readWord, prepareNothing},
    {"spreadsheet", readSpreadsheet, prepareNothing},
    {"presentation", readPresentation, prepareNothing},
    {"opendocument", readOpenDocument, prepareNothing},
    {"epub", readEpub, prepareNothing},
    {"packed", readPacked, preparePacked},
};

}  // namespace

const DocumentKind* documentKind(std::string_view name) {
  const auto* kind = std::find_if(std::begin(KINDS), std::end(KINDS),
                                  [name](const DocumentKind& each) { return each.name == name; });
  return kind == std::end(KINDS) ? nullptr : kind;
}

}  // namespace norvast
