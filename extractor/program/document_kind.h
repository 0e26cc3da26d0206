// Document kind: one kind of file that a program reads into a Document, and how a program does so.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

struct DocumentKind {
  std::string_view name;

  // Any bytes do, of this kind or not. `limitCharacters` counts the Unicode scalars of all blocks.
  ReadDocument (*read)(std::string_view bytes, std::size_t limitCharacters);

  // Loads what reading needs of the system's files, for a process that gives up opening them.
  void (*prepare)() = [] {};
};

// The kind of that name in the table of one program, or nullptr.
const DocumentKind* kindNamed(std::span<const DocumentKind> kinds, std::string_view name);

// Reads standard input as this kind, by runExtraction; the result is the exit status.
int runDocumentExtraction(const DocumentKind* kind, std::string_view limit);

}  // namespace norvast::extractor
