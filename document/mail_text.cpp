#include "document/mail_text.h"

#include <algorithm>
#include <string>
#include <utility>

namespace norvast {

using Kind = DocumentBlock::Kind;

// What begins with ">" is quoted from an earlier mail. The line "-- ", with its blank, begins the
// signature, which ends with the mail (RFC 3676, section 4.3).
void addMailText(std::string_view text, DocumentBuilder& document) {
  std::string paragraph;
  Kind kind = Kind::paragraph;
  bool isSignature = false;
  while (!text.empty() && !document.isFull()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    isSignature = isSignature || line == "-- \n" || line == "-- \r\n";
    const Kind lineKind = isSignature || line.starts_with('>') ? Kind::aside : Kind::paragraph;
    const bool isEmpty = line.find_first_not_of(" \t\r\n") == std::string_view::npos;
    if (isEmpty || lineKind != kind) document.addLines(kind, std::exchange(paragraph, {}));
    kind = lineKind;
    if (!isEmpty) paragraph += line;
  }
  document.addLines(kind, paragraph);
}

}  // namespace norvast
