// Extraction program: how a program that takes the text out of one kind of file, from standard
// input to standard output, gives up everything else before it looks at the file.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "document/document.h"
#include "document/read_failure.h"
#include "platform/file_mapping.h"

namespace norvast::extractor {

// All that a program writes, or why there is nothing to write.
using Extracted = std::variant<std::string, ReadFailure>;

// What a program does for one kind of file.
struct Extraction {
  // Reads a file that is not empty, locked in: the first `limitClusters` user-perceived characters
  // of its text, as UTF-8.
  using Read = std::function<Extracted(FileMapping file, std::size_t limitClusters)>;

  // Before the lock and without the file: loads what reading needs of the system's files and gives
  // the reading itself; an empty function when some of that is not installed.
  std::function<Read()> prepare;

  // What reading may open besides, for the odd file.
  std::span<const std::string_view> readableFolders = {};
};

// A document, within its bounds, as one of the things that a program writes: see parseDocument.
Extracted asExtracted(std::variant<Document, ReadFailure> read);

// Sets the process's limits, prepares, locks the process in, reads standard input with `limit`, a
// decimal number, and writes what came of it. The exit status: 0 when all of it has been written,
// else that of the reason. Call it once, and end with it at once: nothing that a library prints
// goes to standard output or error afterwards.
int runExtraction(const Extraction& extraction, std::string_view limit);

// Locks the process in as for an extraction that may open files in `readableFolders`, and writes
// how far the lock goes, as lockWord says it. The exit status: 0, or that of noProgram when the
// process cannot be locked in. Call it once, and end with it at once.
int reportLock(std::span<const std::string_view> readableFolders);

}  // namespace norvast::extractor
