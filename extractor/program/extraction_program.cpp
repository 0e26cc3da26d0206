#include "extractor/program/extraction_program.h"

#include <fcntl.h>
#include <unistd.h>

#include <charconv>
#include <exception>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

#include "extractor/program/lock_in.h"

namespace norvast::extractor {
namespace {

std::optional<std::size_t> parseLimit(std::string_view text) {
  std::size_t limit = 0;
  const char* behind = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), behind, limit);
  if (error != std::errc() || end != behind) return std::nullopt;
  return limit;
}

// Takes standard output for ourselves: what a library prints there or as an error goes nowhere.
Descriptor takeOutput() {
  Descriptor output(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
  const Descriptor nowhere(open("/dev/null", O_WRONLY | O_CLOEXEC));
  if (!nowhere || dup2(nowhere.number(), STDOUT_FILENO) < 0 ||
      dup2(nowhere.number(), STDERR_FILENO) < 0) {
    return Descriptor();
  }
  return output;
}

// The file as memory; standard input is closed then.
std::variant<FileMapping, ReadFailure> mapInput() {
  const Descriptor file(STDIN_FILENO);
  if (isEmptyFile(file)) return ReadFailure::noText;
  auto mapping = FileMapping::of(file);
  if (!mapping) return ReadFailure::tooLarge;
  return std::move(*mapping);
}

// The one order in which a stranger's bytes are met: nothing looks at them outside the lock.
Extracted extract(const Extraction& extraction, const Descriptor& output,
                  std::size_t limitClusters) {
  if (!limitExtractor(output)) return ReadFailure::noProgram;
  const Extraction::Read read = extraction.prepare();
  if (!read) return ReadFailure::noProgram;
  auto file = mapInput();
  if (const auto* failure = std::get_if<ReadFailure>(&file)) return *failure;
  if (!lockIn(extraction.readableFolders)) return ReadFailure::noProgram;
  return read(std::move(std::get<FileMapping>(file)), limitClusters);
}

}  // namespace

Extracted asExtracted(std::variant<Document, ReadFailure> read) {
  if (const auto* failure = std::get_if<ReadFailure>(&read)) return *failure;
  return writeDocument(withinBounds(std::move(std::get<Document>(read))));
}

int runExtraction(const Extraction& extraction, std::string_view limit) try {
  const auto limitClusters = parseLimit(limit);
  const Descriptor output = takeOutput();
  if (!limitClusters || !output) return exitStatusOf(ReadFailure::noProgram);
  const Extracted extracted = extract(extraction, output, *limitClusters);
  if (const auto* failure = std::get_if<ReadFailure>(&extracted)) return exitStatusOf(*failure);
  const bool written = output.write(std::get<std::string>(extracted));
  return written ? 0 : exitStatusOf(ReadFailure::noProgram);
} catch (const std::bad_alloc&) {
  return exitStatusOf(ReadFailure::tooLarge);
} catch (const std::exception&) {
  return exitStatusOf(ReadFailure::decodingFailed);
}

int reportLock(std::span<const std::string_view> readableFolders) {
  const Descriptor output = takeOutput();
  if (!output || !limitExtractor(output)) return exitStatusOf(ReadFailure::noProgram);
  const auto state = lockIn(readableFolders);
  const bool written = state && output.write(lockWord(*state));
  return written ? 0 : exitStatusOf(ReadFailure::noProgram);
}

}  // namespace norvast::extractor
