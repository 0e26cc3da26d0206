#include "extractor/old_word_kinds.h"

#include <algorithm>
#include <iterator>

#include "extractor/old_office_reader.h"
#include "extractor/old_word_reader.h"

namespace norvast {
namespace {

constexpr DocumentKind KINDS[] = {
    {"old-word", readOldWord, prepareOldWord},
    {"old-office", readOldOffice, prepareOldWord},
};

}  // namespace

const DocumentKind* oldWordKind(std::string_view name) {
  const auto* kind = std::find_if(std::begin(KINDS), std::end(KINDS),
                                  [name](const DocumentKind& each) { return each.name == name; });
  return kind == std::end(KINDS) ? nullptr : kind;
}

}  // namespace norvast
