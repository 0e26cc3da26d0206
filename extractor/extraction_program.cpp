#include "extractor/extraction_program.h"

#include <fcntl.h>
#include <unistd.h>

#include <charconv>
#include <exception>
#include <system_error>

#include "extractor/lock_in.h"

namespace norvast {
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

}  // namespace

int runExtraction(Extraction extract, std::string_view limit) try {
  const auto limitClusters = parseLimit(limit);
  const Descriptor output = takeOutput();
  if (!limitClusters || !output || !limitExtractor(output)) return 1;
  const auto text = extract(Descriptor(STDIN_FILENO), *limitClusters);
  return text && output.write(*text) ? 0 : 1;
} catch (const std::exception&) {
  return 1;
}

}  // namespace norvast
