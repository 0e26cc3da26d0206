// Isolated extraction: what a file holds, taken by a program of its own that is locked in, so that
// no file can harm the one that asks.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "document/document.h"
#include "document/lock_state.h"
#include "document/read_failure.h"
#include "platform/regular_file.h"

namespace norvast {

using Deadline = std::chrono::steady_clock::time_point;

// The deadline of what begins now: whoever asked gets an answer within 30 s, also when the machine
// takes its time over starting and ending the program.
Deadline readingDeadline();

// The first `limitClusters` user-perceived characters of the text of a PDF document, or of what is
// recognised in an image file, as UTF-8 and never empty; or the reason why there is none. Takes no
// part of the file into this process; what comes back is not trusted. Bounded in memory.
// `languages` are names of the recogniser's models, joined by "+".
std::variant<std::string, ReadFailure> isolatedPdfText(const RegularFile& file,
                                                       std::size_t limitClusters,
                                                       Deadline deadline = readingDeadline());
std::variant<std::string, ReadFailure> isolatedImageText(const RegularFile& file,
                                                         std::size_t limitClusters,
                                                         Deadline deadline = readingDeadline(),
                                                         const std::string& languages = "eng");

// True when text can be recognised in that language: when a model of that name is installed.
bool recognizesLanguage(const std::string& name);

// The document in a file, likewise, as the installed `program` reads it when it is started with
// `arguments`.
struct IsolatedReader {
  std::string program;
  std::vector<std::string> arguments;
};
std::variant<Document, ReadFailure> isolatedDocument(const IsolatedReader& reader,
                                                     const RegularFile& file,
                                                     Deadline deadline = readingDeadline());

// How far the programs that read files can lock themselves in on this system, as one of them says
// that has just done so. Returns nothing when it is not installed or cannot: then none reads a
// file.
std::optional<LockState> isolationLock();

}  // namespace norvast
