// Document kinds: the reader of each kind of file that is read into a Document.
#pragma once

#include <cstddef>
#include <string_view>

#include "extractor/document_builder.h"

namespace norvast {

struct DocumentKind {
  std::string_view name;

  // Any bytes do, of this kind or not. `limitCharacters` counts the Unicode scalars of all blocks.
  ReadDocument (*read)(std::string_view bytes, std::size_t limitCharacters);

  // Loads what reading needs of the system's files, for a process that gives up opening them.
  void (*prepare)();
};

// The kind of that name ("word", "spreadsheet", ...), or nullptr. Texts with marks (pageKind),
// mails (mailKind) and the files of older programs (oldOfficeKind) have tables of their own, since
// what each of them is read with takes longer to load than most files to read.
const DocumentKind* documentKind(std::string_view name);

// Reads standard input as this kind, by runExtraction; the result is the exit status.
int runDocumentExtraction(const DocumentKind* kind, std::string_view limit);

}  // namespace norvast
