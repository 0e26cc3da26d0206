// Any bytes, in each reader of documents: what it gives is within the limit, and UTF-8.
#include <variant>

#include "extractor/document_kinds.h"
#include "extractor/mail_reader.h"
#include "fuzz/target.h"
#include "text/utf8.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace norvast;
  constexpr std::size_t LIMIT = 2000;
  for (const char* name : {"word", "spreadsheet", "presentation", "opendocument", "epub", "html",
                           "xml", "rtf", "notebook", "mail", "mailbox", "packed"}) {
    const DocumentKind* kind = documentKind(name);
    if (kind == nullptr) kind = mailKind(name);
    mustHold(kind != nullptr);
    kind->prepare();
    const auto read = kind->read(textOf(bytes, size), LIMIT);
    const auto* document = std::get_if<Document>(&read);
    if (document == nullptr) continue;
    mustHold(!document->blocks.empty());
    mustHold(parseDocument(writeDocument(*document)) == *document);
    for (const DocumentBlock& block : document->blocks) {
      mustHold(block.text.size() <= 4 * LIMIT && validUtf8Length(block.text) == block.text.size());
    }
  }
  return 0;
}
