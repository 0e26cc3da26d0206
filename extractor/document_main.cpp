// norvast_extract_document KIND LIMIT: writes to standard output what writeDocument makes of the
// file on standard input, an office file, page, mail or the like, with at most LIMIT characters of
// text, in the same way as norvast_extract_pdf. KIND is one of document_kinds.cpp; it decides how
// the file is read, whatever it holds.
#include <unistd.h>

#include <string_view>

#include "extractor/document_kinds.h"
#include "extractor/extraction_program.h"

namespace norvast {
namespace {

int run(std::string_view name, std::string_view limit) {
  const DocumentKind* kind = documentKind(name);
  if (kind == nullptr) return exitStatusOf(ReadFailure::noReader);
  const auto prepare = [kind]() -> Extraction::Read {
    kind->prepare();
    return [kind](const FileMapping& file, std::size_t limitCharacters) {
      return asExtracted(kind->read(file.bytes(), limitCharacters));
    };
  };
  return runExtraction({prepare}, limit);
}

}  // namespace
}  // namespace norvast

int main(int count, char** arguments) {
  if (count != 3) return 1;
  _exit(norvast::run(arguments[1], arguments[2]));
}
