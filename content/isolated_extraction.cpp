#include "content/isolated_extraction.h"

#include <fcntl.h>

#include <algorithm>
#include <csignal>
#include <utility>
#include <vector>

#include "platform/child_process.h"
#include "platform/installed_program.h"
#include "text/ascii.h"
#include "text/unicode.h"
#include "text/utf8.h"

namespace norvast {
namespace {

// Of the 30 s that an answer may take; clients give up after 60. What is left is for the system to
// end a program that is late (REAPING_TIME, 1 s), for the audit trail to wait for another program's
// lock (3 s), and for the answer to be written by a machine that has much else to do.
constexpr std::chrono::seconds TIME_TO_READ{25};

// No text of 60,000 characters that a person wrote takes 64 bytes a character; of a document's
// 400,000 this leaves 9 for each.
constexpr std::size_t MOST_BYTES = std::size_t{60'000} * 64;

// The recogniser's threads wait for each other most of the time: on two cores, a dense page took
// 14 s with all of them and 3 s with one. Memory is set aside for each thread and counts against
// the program's limit even when it is not used.
const std::vector<std::string> ENVIRONMENT = {"OMP_THREAD_LIMIT=1", "MALLOC_ARENA_MAX=1"};

ReadFailure reasonOf(const ChildFailure& failure) {
  switch (failure.kind) {
    case ChildFailure::Kind::notStarted:
      return ReadFailure::noProgram;
    case ChildFailure::Kind::exited:
      return failureOfExitStatus(failure.number);
    case ChildFailure::Kind::killed:  // by the system, at the end of the processor time
      return failure.number == SIGKILL ? ReadFailure::tooSlow : ReadFailure::decodingFailed;
    case ChildFailure::Kind::late:
      return ReadFailure::tooSlow;
    case ChildFailure::Kind::wroteTooMuch:
      return ReadFailure::tooLarge;
  }
  return ReadFailure::decodingFailed;
}

std::variant<std::string, ReadFailure> isolated(const IsolatedReader& reader,
                                                const RegularFile& file, Deadline deadline) {
  const auto program = installedProgram(reader.program);
  if (!program) return ReadFailure::noProgram;
  auto output =
      outputOf({*program, reader.arguments, ENVIRONMENT, deadline, MOST_BYTES}, file.descriptor);
  if (const auto* failure = std::get_if<ChildFailure>(&output)) return reasonOf(*failure);
  return std::move(std::get<std::string>(output));
}

std::variant<std::string, ReadFailure> isolatedText(const char* program,
                                                    std::vector<std::string> arguments,
                                                    const RegularFile& file,
                                                    std::size_t limitClusters, Deadline deadline) {
  arguments.push_back(std::to_string(limitClusters));
  auto output = isolated({program, std::move(arguments)}, file, deadline);
  auto* text = std::get_if<std::string>(&output);
  if (text == nullptr) return output;
  if (text->empty()) return ReadFailure::noText;
  if (validUtf8Length(*text) != text->size()) return ReadFailure::decodingFailed;
  text->resize(firstClusters(*text, limitClusters).size());
  return output;
}

RegularFile emptyFile() { return {Descriptor(open("/dev/null", O_RDONLY | O_CLOEXEC)), 0}; }

}  // namespace

Deadline readingDeadline() { return std::chrono::steady_clock::now() + TIME_TO_READ; }

std::variant<std::string, ReadFailure> isolatedPdfText(const RegularFile& file,
                                                       std::size_t limitClusters,
                                                       Deadline deadline) {
  return isolatedText("norvast_extract_pdf", {"text"}, file, limitClusters, deadline);
}

std::variant<std::string, ReadFailure> isolatedImageText(const RegularFile& file,
                                                         std::size_t limitClusters,
                                                         Deadline deadline,
                                                         const std::string& languages) {
  return isolatedText("norvast_extract_image", {languages}, file, limitClusters, deadline);
}

std::optional<LockState> isolationLock() {
  const auto word = isolated({"norvast_extract_pdf", {"--lock"}}, emptyFile(), readingDeadline());
  const auto* text = std::get_if<std::string>(&word);
  return text == nullptr ? std::nullopt : lockStateOf(*text);
}

// The program looks for its models before it looks at its file, which is empty here.
bool recognizesLanguage(const std::string& name) {
  const auto isOfName = [](char character) {
    return isAsciiDigit(character) || isAsciiCapital(character) ||
           (character >= 'a' && character <= 'z') || character == '_';
  };
  if (name.empty() || !std::all_of(name.begin(), name.end(), isOfName)) return false;
  const auto read = isolatedImageText(emptyFile(), 1, readingDeadline(), name);
  const auto* failure = std::get_if<ReadFailure>(&read);
  return failure != nullptr && *failure == ReadFailure::noText;
}

std::variant<Document, ReadFailure> isolatedDocument(const IsolatedReader& reader,
                                                     const RegularFile& file, Deadline deadline) {
  const auto output = isolated(reader, file, deadline);
  if (const auto* failure = std::get_if<ReadFailure>(&output)) return *failure;
  auto document = parseDocument(std::get<std::string>(output));
  if (!document) return ReadFailure::decodingFailed;
  if (document->blocks.empty()) return ReadFailure::noText;
  return std::move(*document);
}

}  // namespace norvast
