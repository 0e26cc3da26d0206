// Document kind: one kind of file that a program reads into a Document, and how a program does so.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

struct DocumentKind {
  std::string_view name;

  // Reads any bytes, of this kind or not. `limitCharacters` counts the Unicode scalars of all
  // blocks.
  ReadDocument (*read)(std::string_view bytes, std::size_t limitCharacters);

  // Loads what reading needs of the system's files, before the process gives up opening files.
  void (*prepare)() = [] {};
};

// Returns the kind of that name in the table of one program, or nullptr if there is none.
const DocumentKind* kindNamed(std::span<const DocumentKind> kinds, std::string_view name);

// Reads standard input as this kind through runExtraction, and returns the exit status. nullptr is
// a kind that this program cannot read.
int runDocumentExtraction(const DocumentKind* kind, std::string_view limit);

}  // namespace norvast::extractor
