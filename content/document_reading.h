// Document reading: what the indexer takes out of a file, of whatever kind it is. The server's own
// reading of a file's text is MCPContent's; this one knows more kinds and what they are made of.
#pragma once

#include <string>
#include <variant>

#include "document/document.h"
#include "document/read_failure.h"
#include "text/recognition_languages.h"

namespace norvast {

// Rises with every change after which a reader finds more, or other, text in the same file.
inline constexpr int READER_VERSION = 6;

struct ReadingOptions {
  std::string languages = recognitionLanguages();  // those that are not installed are passed over
};

// The document in the regular file at `path`; it has at least one block. Files other than plain
// text are read by a program of its own that is locked in. Bounded in time and memory.
std::variant<Document, ReadFailure> readDocument(const std::string& path,
                                                 const ReadingOptions& options = {});

}  // namespace norvast
