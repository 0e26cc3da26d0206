// Each line gets one answer at the most, which is JSON and has the id of its request.
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>

#include "fuzz/target.h"
#include "server/dispatch.h"
#include "tests/file_bytes.h"
#include "tests/test_home.h"
#include "text/utf8.h"

namespace norvast {
namespace {

constexpr const char* TWO_FILES = R"(
INSERT INTO file VALUES('/n/a.txt', 'a.txt', 'txt', 'text', 1, 1), ('/n/b', 'b', '', '', 2, 2);
INSERT INTO mcp_exposure VALUES('/n/a.txt', 1), ('/n/b', 0);
INSERT INTO analysis VALUES('/n/a.txt', 'a summary of letters', 'a', 'text');)";

const ProcessValues& valuesOfSmallIndex() {
  static const TestHome HOME;
  HOME.createIndex(TWO_FILES);
  HOME.writeFile(HOME.norvastFolder() / "mcp.librarymeta", "");
  (void)setenv("HOME", HOME.path().c_str(), 1);
  static const ProcessValues VALUES;
  return VALUES;
}

std::string answerTo(const JsonText& message) {
  const ProcessValues& values = valuesOfSmallIndex();
  const Descriptor file(memfd_create("answer", MFD_CLOEXEC));
  Output output(file);
  handle(message, values, output);
  return fileBytes("/proc/self/fd/" + std::to_string(file.number()));
}

}  // namespace
}  // namespace norvast

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace norvast;
  const std::string text = repairUtf8(std::string(textOf(bytes, size)));
  const auto message = JsonText::parse(text);
  if (!message || !message->isObject()) return 0;
  const std::string line = answerTo(*message);
  if (line.empty()) return 0;
  mustHold(line.find('\n') == line.size() - 1 && validUtf8Length(line) == line.size());
  const auto answer = JsonText::parse(line);
  mustHold(answer && answer->isObject());
  const auto id = message->member("id");
  const auto echo = answer->member("id");
  mustHold(id.has_value() == echo.has_value() && (!id || id->compact() == echo->compact()));
  return 0;
}
