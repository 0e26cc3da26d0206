#include "extractor/program/document_kind.h"

#include <algorithm>

#include "extractor/program/extraction_program.h"

namespace norvast::extractor {

const DocumentKind* kindNamed(std::span<const DocumentKind> kinds, std::string_view name) {
  const auto kind = std::find_if(kinds.begin(), kinds.end(),
                                 [name](const DocumentKind& each) { return each.name == name; });
  return kind == kinds.end() ? nullptr : &*kind;
}

int runDocumentExtraction(const DocumentKind* kind, std::string_view limit) {
  if (kind == nullptr) return exitStatusOf(ReadFailure::noReader);
  const auto prepare = [kind]() -> Extraction::Read {
    kind->prepare();
    return [kind](const FileMapping& file, std::size_t limitCharacters) {
      return asExtracted(kind->read(file.bytes(), limitCharacters));
    };
  };
  return runExtraction({prepare}, limit);
}

}  // namespace norvast::extractor
