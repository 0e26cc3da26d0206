// norvast_extract_pdf text|document LIMIT: writes to standard output the text of the PDF document
// on standard input, at most LIMIT characters of it, or what writeDocument makes of it. Exit status
// 0 means that all of it was written; any other tells why there is none. Started by norvast_mcp and
// norvast_index, which trust it nothing. With --lock alone it writes how far it can lock itself in
// here: of all such programs it is the one that opens files while it reads.
#include <unistd.h>

#include <string_view>

#include "extractor/pdf/pdf_text.h"
#include "extractor/program/extraction_program.h"

namespace norvast::extractor {
namespace {

Extraction::Read prepareText() {
  preparePdfText();
  return [](const FileMapping& file, std::size_t limitClusters) {
    return pdfText(file.bytes(), limitClusters);
  };
}

Extraction::Read prepareDocument() {
  preparePdfText();
  return [](const FileMapping& file, std::size_t limitClusters) {
    return asExtracted(pdfDocument(file.bytes(), limitClusters));
  };
}

}  // namespace
}  // namespace norvast::extractor

int main(int count, char** arguments) {
  if (count == 2 && arguments[1] == std::string_view("--lock"))
    _exit(norvast::extractor::reportLock(norvast::extractor::PDF_DATA_FOLDERS));
  if (count != 3) return 1;
  const bool isText = arguments[1] == std::string_view("text");
  // The memory goes with the process; taking it apart first would only cost time.
  _exit(norvast::extractor::runExtraction(
      {isText ? norvast::extractor::prepareText : norvast::extractor::prepareDocument,
       norvast::extractor::PDF_DATA_FOLDERS},
      arguments[2]));
}
