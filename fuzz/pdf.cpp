// Any bytes as a PDF: its text, where it has one, is UTF-8.
#include "extractor/pdf/pdf_text.h"
#include "fuzz/target.h"
#include "text/utf8.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace norvast;
  using namespace norvast::extractor;
  const auto read = pdfText(textOf(bytes, size), 2000);
  const auto* text = std::get_if<std::string>(&read);
  if (text != nullptr) mustHold(!text->empty() && validUtf8Length(*text) == text->size());
  return 0;
}
