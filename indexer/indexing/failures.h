// Failures: why files have no text in the index, as it is kept and told, and when they are tried
// again.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "content/document_reading.h"
#include "store/connection.h"

namespace norvast::indexer {

struct FailedFile {
  std::string path;
  ReadFailure reason = ReadFailure::noText;
  int reader = 0;  // the version of the reader that met it
};

// As the index stores it: one word.
std::string_view failureWord(ReadFailure reason);

// As a person reads it: "no reader for this kind".
std::string_view failureText(ReadFailure reason);

// Its place among all reasons: those that a user can mend come first.
std::size_t failureOrder(ReadFailure reason);

// Whether the next run may do better though the file is the same: what was missing then may be
// there by now, or the reader is another.
bool isTriedAgain(const FailedFile& failed);

// Whether the file could not be read for now, rather than holding nothing to be read.
bool isPassing(ReadFailure reason);

// The files without text at or below the path, in the byte order of their paths. Nothing when they
// could not all be read.
std::optional<std::vector<FailedFile>> failedFiles(const Connection& index,
                                                   const std::string& path);

}  // namespace norvast::indexer
