#include "extractor/markup/xml_document_reader.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "document/table_row.h"
#include "extractor/markup/xml_reader.h"
#include "text/encoding.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;
using Event = XmlReader::Event;

// Where the declaration ends at the latest.
constexpr std::size_t DECLARATION_BYTES = 200;

bool isBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

// Pictures, programs, and what FictionBook says of the file and its making.
bool isNoText(std::string_view name) {
  constexpr std::string_view NAMES[] = {"binary", "script", "style", "document-info", "genre"};
  return std::find(std::begin(NAMES), std::end(NAMES), name) != std::end(NAMES);
}

bool isRow(std::string_view name) { return name == "tr" || name == "row"; }
bool isCell(std::string_view name) { return name == "td" || name == "th" || name == "entry"; }

// What an unknown element means is told by where it stands: one that opens behind text of its
// parent is a part of a line, as "em" in <p>so <em>very</em> big</p>; any other is a block of its
// own. Known by name are titles, authors, and the rows and cells of tables in HTML, DocBook ("row",
// "entry") and office formats. FictionBook puts an author's first and last name in elements of
// their own, so that these are joined.
class XmlText {
 public:
  explicit XmlText(DocumentBuilder& document) : document_(document) {}

  bool read(XmlReader& xml) {
    Event event = xml.next();
    for (; event < Event::finished && !document_.isFull(); event = xml.next()) {
      if (event == Event::start) start(xml);
      if (event == Event::text) text(xml.text());
      if (event == Event::end) end(xml.name());
    }
    flush();
    return event != Event::failed;
  }

 private:
  struct Open {
    bool isHeading = false;
    bool isAuthor = false;
    bool hasText = false;
    bool isInline = false;
    bool isInCell = false;
  };

  void start(XmlReader& xml) {
    const std::string_view name = xml.name();
    if (isNoText(name)) return xml.skip();
    Open open;
    if (!open_.empty()) {
      open = open_.back();
      open.isInline = open.hasText;
    }
    open.isHeading = open.isHeading || name == "title" || name == "book-title";
    open.isAuthor = open.isAuthor || name == "author" || name == "creator";
    open.hasText = open.isInline;
    if (!open.isInline) flush();
    if (isCell(name)) row_.startCell();
    open.isInCell = open.isInCell || isCell(name);
    open_.push_back(open);
  }

  void text(std::string_view text) {
    if (open_.empty()) return;
    if (!isBlank(text)) open_.back().hasText = true;
    text_ += text;
  }

  void end(std::string_view name) {
    if (open_.empty()) return;
    if (!open_.back().isInline) flush();
    open_.pop_back();
    if (isRow(name)) row_.finish(document_);
  }

  void flush() {
    const std::string text = collapsed(text_);
    text_.clear();
    if (text.empty() || open_.empty()) return;
    const Open& open = open_.back();
    if (open.isInCell) return row_.add(text);
    if (open.isAuthor) {
      author_ += (author_.empty() ? "" : " ") + text;
      return;
    }
    if (!author_.empty()) document_.setAuthor(author_);
    if (open.isHeading) document_.setTitle(text);
    document_.add(open.isHeading ? Kind::heading : Kind::paragraph, text);
  }

  DocumentBuilder& document_;
  std::vector<Open> open_;
  TableRow row_;
  std::string text_;
  std::string author_;  // its parts together
};

// The declaration: <?xml version="1.0" encoding="windows-1251"?> (XML 1.0, section 2.8).
// The encoding that the declaration names, when libxml2 does not know it without the system's
// files.
std::optional<std::string> foreignEncoding(std::string_view bytes) {
  const std::string_view head = bytes.substr(0, DECLARATION_BYTES);
  if (!head.starts_with("<?xml")) return std::nullopt;
  const std::string_view declaration = head.substr(0, head.find("?>"));
  std::size_t at = declaration.find("encoding");
  if (at == std::string_view::npos) return std::nullopt;
  at = declaration.find_first_of("\"'", at);
  if (at == std::string_view::npos) return std::nullopt;
  const std::string_view behind = declaration.substr(at + 1);
  const std::string name(behind.substr(0, behind.find_first_of("\"'")));
  if (name == "UTF-8" || name == "utf-8") return std::nullopt;
  return name;
}

}  // namespace

ReadDocument readXml(std::string_view bytes, std::size_t limitCharacters) {
  DocumentBuilder document("XML", limitCharacters);
  XmlText text(document);
  std::optional<std::string> decoded;
  if (const auto encoding = foreignEncoding(bytes)) decoded = decodedFrom(bytes, *encoding);
  XmlReader xml(decoded ? std::string_view(*decoded) : bytes, decoded ? "UTF-8" : nullptr);
  if (!text.read(xml)) return ReadFailure::decodingFailed;
  return document.take();
}

}  // namespace norvast::extractor
