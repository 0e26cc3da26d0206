#include "extractor/old_office_kinds.h"

#include <algorithm>
#include <iterator>

#include "extractor/old_presentation_reader.h"
#include "extractor/old_spreadsheet_reader.h"

namespace norvast {
namespace {

void prepareNothing() {}

constexpr DocumentKind KINDS[] = {
    {"old-spreadsheet", readOldSpreadsheet, prepareNothing},
    {"old-presentation", readOldPresentation, prepareNothing},
};

}  // namespace

const DocumentKind* oldOfficeKind(std::string_view name) {
  const auto* kind = std::find_if(std::begin(KINDS), std::end(KINDS),
                                  [name](const DocumentKind& each) { return each.name == name; });
  return kind == std::end(KINDS) ? nullptr : kind;
}

}  // namespace norvast
