// norvast_extract KIND LIMIT: writes to standard output the text of the PDF ("pdf") or image
// ("image") on standard input, at most LIMIT characters of it. Exit status 0 means that all of it
// was written; any other end, that there is none. Started by norvast_mcp, which trusts it nothing.
#include <unistd.h>

#include <string_view>

#include "extractor/extraction_program.h"
#include "extractor/pdf_extraction.h"
#include "platform/installed_program.h"

namespace norvast {
namespace {

// Becomes the program that reads images, with its own limit still to set. Its libraries would take
// more time to load than a short PDF to read. Returns only on failure.
int extractImageElsewhere(char* limit) {
  auto program = installedProgram("norvast_extract_image");
  if (!program) return 1;
  char* const arguments[] = {program->data(), limit, nullptr};
  (void)execv(program->c_str(), arguments);
  return 1;
}

int run(std::string_view kind, char* limit) {
  if (kind == "pdf") return runExtraction(extractPdf, limit);
  if (kind == "image") return extractImageElsewhere(limit);
  return 1;
}

}  // namespace
}  // namespace norvast

int main(int count, char** arguments) {
  // The memory goes with the process; taking it apart first would only cost time.
  _exit(count == 3 ? norvast::run(arguments[1], arguments[2]) : 1);
}
