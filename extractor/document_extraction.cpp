#include "extractor/document_kinds.h"
#include "extractor/extraction_program.h"

namespace norvast {

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

}  // namespace norvast
