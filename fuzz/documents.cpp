// Any bytes, in each reader of documents.
#include "extractor/mail/mail_reader.h"
#include "extractor/office/office_kinds.h"
#include "extractor/page/page_kinds.h"
#include "fuzz/document_rules.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace norvast;
  using namespace norvast::extractor;
  constexpr std::size_t LIMIT = 2000;
  for (const char* name : {"word", "spreadsheet", "presentation", "opendocument", "epub", "html",
                           "xml", "rtf", "notebook", "manual", "mail", "mailbox", "packed"}) {
    const DocumentKind* kind = officeKind(name);
    if (kind == nullptr) kind = pageKind(name);
    if (kind == nullptr) kind = mailKind(name);
    mustHold(kind != nullptr);
    kind->prepare();
    mustKeepTheRules(kind->read(textOf(bytes, size), LIMIT), LIMIT);
  }
  return 0;
}
