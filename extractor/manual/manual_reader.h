// Manual reader: the text of manual pages, which are written in the macros man(7) and mdoc(7) of
// roff(7). Debian's formatters start programs of their own, or lay lines out for a terminal.
#pragma once

#include <cstddef>
#include <string_view>

#include "document/document_builder.h"

namespace norvast::extractor {

// Sections as headings, paragraphs, the items of lists with their names on a line of their own, and
// rows of tables. The title is the line that says what the page is about ("ls - list directory
// contents"), or else the page's name with its section, "LS(1)". Macros of the page's own show what
// they are given. unreadableEncoding for a text in none that can be told.
ReadDocument readManual(std::string_view bytes, std::size_t limitCharacters);

}  // namespace norvast::extractor
