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

// All that a program writes, or the reason why there is nothing to write.
using Extracted = std::variant<std::string, ReadFailure>;

// What a program does for one kind of file.
struct Extraction {
  // Reads a file that is not empty, in the locked-in process. The result is UTF-8, at most
  // `limitClusters` user-perceived characters of text.
  using Read = std::function<Extracted(FileMapping file, std::size_t limitClusters)>;

  // Called before the process is locked in, and without the file. Loads what reading needs of the
  // system's files, and returns the function that reads. Returns an empty function if something
  // that reading needs is not installed.
  std::function<Read()> prepare;

  // Folders that reading may still open files in; most files need none.
  std::span<const std::string_view> readableFolders = {};
};

// Returns the document, within its bounds, in the form that a program writes and parseDocument
// reads.
Extracted asExtracted(std::variant<Document, ReadFailure> read);

// Sets the process's limits, prepares, locks the process in, reads standard input, and writes the
// result to standard output. `limit` is a decimal number. Returns the exit status: 0 if all was
// written, else that of the reason. Call it once, as the last thing that the process does: nothing
// that a library prints reaches standard output or standard error afterwards.
int runExtraction(const Extraction& extraction, std::string_view limit);

// Locks the process in as for an extraction that may open files in `readableFolders`, and writes
// how far the lock goes, as lockWord says it. The exit status: 0, or that of noProgram when the
// process cannot be locked in. Call it once, and end with it at once.
int reportLock(std::span<const std::string_view> readableFolders);

}  // namespace norvast::extractor
