// norvast_extract_scan LANGUAGES SECONDS LIMIT PAGE...: writes to standard output what
// writeDocument makes of the pages with these numbers, recognised as pictures, of the PDF document
// on standard input: as many as come within SECONDS of the processor's time, in the same way as
// norvast_extract_pdf. LANGUAGES are names of the recogniser's models, joined by "+".
#include <unistd.h>

#include <charconv>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "extractor/pdf/pdf_text.h"
#include "extractor/pdf/scanned_pages.h"
#include "extractor/program/extraction_program.h"

namespace norvast::extractor {
namespace {

int number(std::string_view text) {
  int value = 0;
  (void)std::from_chars(text.data(), text.data() + text.size(), value);
  return value;  // 0, which is no page and no time, where there is none
}

Extraction::Read prepareScan(const char* languages, std::chrono::seconds time,
                             const std::vector<int>& pages) {
  preparePdfText();
  auto opened = TextRecognizer::open(languages);
  if (!opened) return {};
  const auto recognizer = std::make_shared<TextRecognizer>(std::move(*opened));
  return [recognizer, time, pages](const FileMapping& file, std::size_t /*limitClusters*/) {
    return asExtracted(recognizePages(*recognizer, file.bytes(), pages, time));
  };
}

}  // namespace
}  // namespace norvast::extractor

int main(int count, char** arguments) {
  if (count < 5) return 1;
  const std::chrono::seconds time(norvast::extractor::number(arguments[2]));
  std::vector<int> pages;
  for (int index = 4; index < count; ++index)
    pages.push_back(norvast::extractor::number(arguments[index]));
  _exit(norvast::extractor::runExtraction(
      {[&] { return norvast::extractor::prepareScan(arguments[1], time, pages); }}, arguments[3]));
}
