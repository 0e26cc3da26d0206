// norvast_mcp: answers an AI client's requests about the user's files, one JSON-RPC message a line
// on standard input and output. No arguments; ends with status 0 when standard input ends.
#include <unistd.h>

#include <memory>
#include <new>
#include <string>
#include <utility>

#include "json/json_text.h"
#include "platform/descriptor.h"
#include "server/dispatch.h"
#include "server/line_reader.h"
#include "server/output.h"
#include "server/process_values.h"
#include "text/utf8.h"

namespace norvast {
namespace {

// The values live until the process is gone. Destroying them would close the index, and the last
// connection's close writes to a database in write-ahead mode, which is not ours to do.
const ProcessValues& settleProcessValues() {
  static const ProcessValues* values = std::make_unique<ProcessValues>().release();
  return *values;
}

// A line that is no JSON object is dropped in silence, and so is one too large for the memory.
void serve(std::string line, const ProcessValues& values, Output& output) {
  try {
    const std::string text = repairUtf8(std::move(line));
    const auto message = JsonText::parse(text);
    if (message && message->isObject()) handle(*message, values, output);
  } catch (const std::bad_alloc&) {
  }
}

}  // namespace
}  // namespace norvast

int main() {
  using namespace norvast;
  // A file that the client left open here would count as one of our own, which are never read.
  closeInheritedDescriptors();
  keepStandardDescriptorsOpen();
  ignoreBrokenPipes();
  const ProcessValues& values = settleProcessValues();
  const Descriptor input(STDIN_FILENO);
  const Descriptor client(STDOUT_FILENO);
  Output output(client);
  LineReader lines(input);
  while (auto line = lines.next()) serve(std::move(*line), values, output);
  return 0;
}
