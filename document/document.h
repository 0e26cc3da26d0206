// Document: what a reader takes out of a file of any kind, in reading order.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace norvast {

struct DocumentBlock {
  enum class Kind : char {
    paragraph = 'p',  // running text; line breaks in it are the file's own
    heading = 'h',
    part = 's',      // begins a sheet, slide, chapter, page or message; the text is its name
    tableRow = 'r',  // the cells of one row, separated by a tab
    note = 'n',      // footnote, speaker's note, comment
    aside = 'a',     // navigation and other boilerplate: kept, but says little of the document
    detail = 'd',    // facts beside the text: sender, recipients, date, attachments by name
  };
  Kind kind = Kind::paragraph;
  std::string text;  // UTF-8, not empty, without control characters but tab and line feed

  bool operator==(const DocumentBlock&) const = default;
};

struct Document {
  std::string method;  // by which the text was taken, as the index names it: "PDFKit", "text", ...
  std::string title;   // empty when the file names none; one line
  std::string author;  // likewise; of a mail its sender
  std::vector<DocumentBlock> blocks;  // in reading order

  bool operator==(const Document&) const = default;
};

// The name of a page as a part: "Page 3".
std::string pageName(int number);

// The longest fields of a document, in bytes. A program that reads files may be in the hands of the
// file, and what it answers goes into the index: without these bounds a method of some megabytes
// would stand in each answer about that file.
inline constexpr std::size_t MOST_METHOD_BYTES = 32;  // our longest name of one has 15
// Of a title, an author and the name of a heading or part: the longest line of a mail's header, of
// 998 characters (RFC 5322, 2.1.1), each of at most four bytes.
inline constexpr std::size_t MOST_NAME_BYTES = 4'000;

// The document with a method, title and author no longer than that, cut between two characters. A
// heading or part with a longer text names nothing: it becomes a paragraph, and no text is lost.
Document withinBounds(Document document);

// The document as bytes, for the way out of the program that read it: each field and block as a
// letter, its text, and U+001E. Control characters that a text may not hold are left out. The
// document must be within its bounds.
std::string writeDocument(const Document& document);

// The document that writeDocument wrote. Returns nothing for any other bytes, whoever wrote them,
// and for a field beyond its bound; then no part of them is used.
std::optional<Document> parseDocument(std::string_view bytes);

// The texts of all blocks but asides and details, each two separated by an empty line, two table
// rows by a line feed.
std::string plainText(const Document& document);

}  // namespace norvast
