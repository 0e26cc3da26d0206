// What reading a file through the whole tool call costs beside the plainest way of reading it: bare
// bytes, or the command that comes with the decoder.
#include <fcntl.h>
#include <leptonica/allheaders.h>

#include <chrono>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "bench/bench_index.h"
#include "bench/pdf_builder.h"
#include "bench/picture.h"
#include "bench/ratio.h"
#include "content/mcp_content.h"
#include "json/json_writer.h"
#include "platform/child_process.h"
#include "platform/descriptor.h"
#include "platform/folders.h"
#include "store/mcp_store.h"
#include "tests/harness/file_bytes.h"
#include "text/utf8.h"
#include "tools/call_tool.h"

namespace norvast {
namespace {

constexpr int ROUNDS = 9;
constexpr std::size_t LIMIT = 60'000;

std::string randomLine(std::mt19937& random) {
  constexpr const char* WORDS[] = {"garden", "report", "river",  "meeting", "invoice", "compost",
                                   "summer", "letter", "engine", "the",     "of",      "and"};
  std::string line;
  for (int word = 0; word < 12; ++word) line += std::string(WORDS[random() % 12]) + " ";
  return line;
}

std::string pdf(std::size_t pages) {
  std::mt19937 random(1);
  std::vector<std::vector<std::string>> lines(pages);
  for (auto& page : lines) {
    page.resize(45);
    for (std::string& line : page) line = randomLine(random);
  }
  return pdfOfPages(lines);
}

std::string scannedPage() {
  std::mt19937 random(1);
  std::vector<std::string> lines(40);
  for (std::string& line : lines) line = randomLine(random);
  return encoded(drawnText(lines, 10), IFF_PNG);
}

// Reads at most LIMIT bytes and validates them, a thousand times, as the tool's text is.
void readBare(const std::string& path) {
  for (int time = 0; time < 1'000; ++time) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::string bytes(LIMIT, '\0');
    bytes.resize(file.read(bytes).value_or(0));
    if (validUtf8Length(bytes) != bytes.size()) std::puts("not valid");
  }
}

void readText(const std::string& path) {
  for (int time = 0; time < 1'000; ++time) {
    if (!MCPContent::extract(path, LIMIT)) std::puts("no text");
  }
}

// The command as a shell would run it: with our own environment's defaults, to the end.
void runCommand(const std::string& program, const std::vector<std::string>& arguments) {
  const Descriptor input(open("/dev/null", O_RDONLY | O_CLOEXEC));
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes{2};
  const auto output = outputOf({program, arguments, {}, deadline, std::size_t{1} << 30}, input);
  const auto* text = std::get_if<std::string>(&output);
  if (text == nullptr || text->empty()) std::printf("%s gave nothing\n", program.c_str());
}

class FileReading {
 public:
  void text(const std::string& name, const std::string& bytes) {
    const std::string path = index_.addFile(name, bytes);
    printRatio(
        "1,000 x " + name + " to read and validate", ROUNDS, [&] { readBare(path); },
        [&] { readText(path); });
  }

  // Beside /usr/bin/`command`, where it is installed.
  void decoded(const std::string& name, const std::string& bytes, const std::string& command) {
    const std::string path = index_.addFile(name, bytes);
    const std::string program = "/usr/bin/" + command;
    if (!regularFileExists(program)) {
      std::printf("%-58s (no ratio: %s is not installed)\n", name.c_str(), command.c_str());
      return;
    }
    printRatio(
        name + " to " + command, ROUNDS,
        [&] {
          runCommand(program, {path, "-"});
        },
        [&] { callTool(path); });
  }

 private:
  void callTool(const std::string& path) const {
    const std::string text =
        writeJson(Json::Object{{"path", path}}, JsonStyle::compact).value_or("");
    const Json answer =
        norvast::callTool("read_file_content", Arguments(JsonText::parse(text)), store_, sentence_);
    if (*member(*answer.object(), "isError")->boolean()) std::puts("the tool gave nothing");
  }

  BenchIndex index_;
  std::optional<MCPStore> store_ = MCPStore::open();
  std::optional<SentenceEmbedding> sentence_;
};

void run() {
  FileReading reading;
  std::string umlauts;
  while (umlauts.size() < 100'000) umlauts += "Größe und Maß überprüft, ";
  reading.text("60,000 bytes of ASCII.txt", std::string(60'000, 'x'));
  reading.text("60,000 of 100,000 bytes.txt", umlauts);
  reading.decoded("1 page.pdf", pdf(1), "pdftotext");
  reading.decoded("100 pages.pdf", pdf(100), "pdftotext");
  reading.decoded("1,000 pages.pdf", pdf(1'000), "pdftotext");
  reading.decoded("a receipt of 8 lines.png", fileBytes(SAMPLES "/receipts/Garden centre.png"),
                  "tesseract");
  reading.decoded("a page of 40 lines.png", scannedPage(), "tesseract");
}

}  // namespace
}  // namespace norvast

int main() { norvast::run(); }
