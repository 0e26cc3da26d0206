// norvast_extract KIND LIMIT: writes to standard output the text of the PDF ("pdf") or image
// ("image") on standard input, at most LIMIT characters of it. Exit status 0 means that all of it
// was written; any other end, that there is none. Started by norvast_mcp, which trusts it nothing.
#include <fcntl.h>
#include <unistd.h>

#include <exception>
#include <span>

#include "extractor/extraction.h"
#include "extractor/lock_in.h"

namespace norvast {
namespace {

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

bool run(std::span<const char* const> arguments, const Descriptor& output) try {
  const auto request = parseRequest(arguments);
  if (!request || !output || !limitExtractor(output)) return false;
  const auto text = extractText(*request, Descriptor(STDIN_FILENO));
  return text && output.write(*text);
} catch (const std::exception&) {
  return false;
}

}  // namespace
}  // namespace norvast

int main(int count, char** arguments) {
  using namespace norvast;
  const std::span all(arguments, static_cast<std::size_t>(count));
  const Descriptor output = takeOutput();  // open until the end, which its reader waits for
  const bool done = !all.empty() && run(all.subspan(1), output);
  // The memory goes with the process; taking it apart first would only cost time.
  _exit(done ? 0 : 1);
}
