// Document reading: what the indexer takes out of a file, of whatever kind it is. The server's own
// reading of a file's text is MCPContent's; this one knows more kinds and what they are made of.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "text/document.h"

namespace norvast {

// Why a file has no text in the index.
enum class ReadFailure : std::uint8_t {
  noReader,            // nothing here reads files of its kind
  noText,              // it was read, and holds no text
  decodingFailed,      // it is damaged, or not what its name says
  encrypted,           // it is locked with a password
  unreadableEncoding,  // a text whose encoding cannot be told
  tooLarge,            // it, or what is packed in it, is beyond the bounds
  tooSlow,             // it could not be read in time
  noPermission,        // it may not be opened
  noProgram,           // the program that reads its kind is not installed
  gone,                // it was there a moment ago
};

// Rises with every change after which a reader finds more, or other, text in the same file.
inline constexpr int READER_VERSION = 1;

// The document in the regular file at `path`; it has at least one block. Files other than plain
// text are read by a program of its own that is locked in. Bounded in time and memory.
std::variant<Document, ReadFailure> readDocument(const std::string& path);

}  // namespace norvast
