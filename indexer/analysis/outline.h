// Outline: a document as one text, and what each stretch of that text is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "document/document.h"

namespace norvast::indexer {

// Stretches do not overlap and follow each other; what lies between them is white space or marks.
struct Stretch {
  enum class Kind : std::uint8_t {
    part,      // the name of a sheet, slide, chapter or message that begins here
    heading,   // above what follows
    prose,     // a paragraph or list item
    tableRow,  // cells between tabs
    note,      // a footnote, speaker's note or comment
    detail,    // a fact beside the text: a sender, a date
    code,      // of a program or of a file with fields
  };
  Kind kind = Kind::prose;
  std::size_t start = 0;  // in the outline's text
  std::size_t size = 0;
};

struct Outline {
  std::string title;   // that the file gives itself, as nameIn gives it; empty when it gives none
  std::string author;  // likewise; of a mail its sender
  std::string text;    // as it stands in the file; without navigation and other boilerplate
  std::vector<Stretch> stretches;

  std::string_view textOf(const Stretch& stretch) const {
    return std::string_view(text).substr(stretch.start, stretch.size);
  }
};

// As much of a title or heading as a name has: each passage is embedded with those above it, and a
// file may call anything its title. At most 500 bytes.
std::string_view nameIn(std::string_view heading);

// The outline of the document read from a file of that name. A document of one paragraph, as a file
// of plain text gives, is taken apart by the rules of its kind (plain_text_outline.h).
Outline outlineOf(Document document, std::string_view name);

}  // namespace norvast::indexer
