#include "extractor/office/opendocument_reader.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <utility>
#include <vector>

#include "document/table_row.h"
#include "extractor/markup/xml_reader.h"
#include "extractor/office/zip_parts.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;
using Event = XmlReader::Event;

// An attribute that asks for a thousand million blanks costs nothing to write.
constexpr std::size_t MOST_BLANKS = 100;

// Elements whose paragraphs are no running text.
Kind sideKind(std::string_view element) {
  if (element == "note-body" || element == "annotation" || element == "notes") return Kind::note;
  const bool isContents = element == "table-of-content" || element.ends_with("-index");
  return isContents ? Kind::aside : Kind::paragraph;
}

// What stands within paragraphs without being their text, or is not for the reader's eyes.
bool isHidden(std::string_view element) {
  constexpr std::string_view HIDDEN[] = {
      "tracked-changes", "note-citation",   "ruby-text",        "desc",
      "binary-data",     "event-listeners", "automatic-styles", "styles",
      "master-styles",   "scripts",         "settings"};
  return std::find(std::begin(HIDDEN), std::end(HIDDEN), element) != std::end(HIDDEN);
}

// The elements of content.xml (OpenDocument 1.3, part 3; the prefixes are left out):
//   text:p text:h              a paragraph, a heading
//   text:s c="3"               three blanks: several in a row count as one otherwise
//   (section 6.1.2) text:tab text:line-break   single characters table:table table-row table-cell
//   a table, in texts and as a sheet of a spreadsheet draw:page draw:frame class="title"     a
//   slide, and a shape of the layout on it text:note > note-citation, note-body   a footnote,
//   within the paragraph that it belongs to
// A flat file (fodt) holds all parts in one: office:meta stands there before office:body.
class OpenDocumentPart {
 public:
  explicit OpenDocumentPart(DocumentBuilder& document) : document_(document) {}

  bool read(std::string_view bytes, bool isCut) {
    XmlReader xml(bytes);
    Event event = xml.next();
    for (; event < Event::finished && !document_.isFull(); event = xml.next()) {
      if (event == Event::start) start(xml);
      if (event == Event::end) end(xml.name());
      if (event == Event::text) text(xml.text());
    }
    if (!creator_.empty()) document_.setAuthor(creator_);
    return event != Event::failed || isCut;
  }

 private:
  struct Paragraph {
    std::string text;
    bool isHeading = false;
  };

  void start(XmlReader& xml) {
    const std::string_view name = xml.name();
    if (isHidden(name)) return xml.skip();
    if (isInMeta_) {
      property_ = name;
      return;
    }
    if (sideKind(name) != Kind::paragraph) sides_.push_back(sideKind(name));
    if (name == "p" || name == "h") {
      const bool isTitle = isTitle_ || xml.attribute("style-name") == "Title";
      paragraphs_.push_back({{}, name == "h" || isTitle});
    } else if (name == "meta") {
      isInMeta_ = true;
    } else if (name == "title") {
      xml.skip();  // of a picture
    } else if (name == "spreadsheet") {
      isSpreadsheet_ = true;
    } else if (name == "page") {
      document_.add(Kind::part, "Slide " + std::to_string(++page_));
    } else if (name == "frame") {
      isTitle_ = xml.attribute("class") == "title";
    } else if (!startInTable(xml)) {
      startInLine(xml);
    }
  }

  bool startInTable(const XmlReader& xml) {
    const std::string_view name = xml.name();
    if (name == "table") {
      if (isSpreadsheet_ && tableDepth_ == 0) document_.add(Kind::part, xml.attribute("name"));
      ++tableDepth_;
    } else if (name == "table-cell") {
      if (tableDepth_ == 1) row_.startCell();
    } else {
      return false;
    }
    return true;
  }

  void startInLine(const XmlReader& xml) {
    const std::string_view name = xml.name();
    if (name == "s") {
      const std::string count = xml.attribute("c");
      std::size_t blanks = 1;
      (void)std::from_chars(count.data(), count.data() + count.size(), blanks);
      text(std::string(std::min(blanks, MOST_BLANKS), ' '));
    } else if (name == "tab") {
      text("\t");
    } else if (name == "line-break") {
      text("\n");
    }
  }

  void text(std::string_view text) {
    if (isInMeta_) {
      if (property_ == "title") document_.setTitle(text);
      if (property_ == "initial-creator") document_.setAuthor(text);
      if (property_ == "creator") creator_ = text;
    } else if (!paragraphs_.empty()) {
      paragraphs_.back().text += text;
    }
  }

  void end(std::string_view name) {
    if (name == "meta") {
      isInMeta_ = false;
    } else if (isInMeta_) {
      property_.clear();
    } else if (sideKind(name) != Kind::paragraph) {
      if (!sides_.empty()) sides_.pop_back();
    } else if (name == "p" || name == "h") {
      endParagraph();
    } else if (name == "frame") {
      isTitle_ = false;
    } else if (name == "table-row") {
      if (tableDepth_ == 1) row_.finish(document_);
    } else if (name == "table") {
      if (tableDepth_ > 0) --tableDepth_;
    }
  }

  void endParagraph() {
    if (paragraphs_.empty()) return;
    const Paragraph ended = std::move(paragraphs_.back());
    paragraphs_.pop_back();
    if (!sides_.empty()) {
      document_.addLines(sides_.back(), ended.text);
    } else if (tableDepth_ > 0) {
      row_.add(ended.text);
    } else if (ended.isHeading) {
      document_.add(Kind::heading, ended.text);
    } else {
      document_.addLines(Kind::paragraph, ended.text);
    }
  }

  DocumentBuilder& document_;
  std::vector<Paragraph> paragraphs_;  // a note stands within the paragraph that it belongs to
  std::vector<Kind> sides_;
  TableRow row_;
  std::string property_;
  std::string creator_;  // who changed it last
  std::size_t tableDepth_ = 0;
  std::size_t page_ = 0;
  bool isInMeta_ = false;
  bool isSpreadsheet_ = false;
  bool isTitle_ = false;
};

// META-INF/manifest.xml names all files of the package; an encrypted one has an element
// encryption-data (OpenDocument 1.3, part 2, section 4).
bool isWanted(std::string_view name) {
  return name == "content.xml" || name == "meta.xml" || name == "META-INF/manifest.xml";
}

}  // namespace

ReadDocument readOpenDocument(std::string_view bytes, std::size_t limitCharacters) {
  DocumentBuilder document("OpenDocument", limitCharacters);
  OpenDocumentPart reader(document);
  if (!bytes.starts_with("PK")) {  // a flat one
    if (!reader.read(bytes, false)) return ReadFailure::decodingFailed;
    return document.take();
  }
  const auto read = readZipParts(bytes, isWanted);
  if (const auto* failure = std::get_if<ReadFailure>(&read)) return *failure;
  const auto& parts = std::get<ZipParts>(read);
  const ZipPart* manifest = findPart(parts, "META-INF/manifest.xml");
  if (manifest != nullptr && manifest->bytes.find("encryption-data") != std::string::npos) {
    return ReadFailure::encrypted;
  }
  const ZipPart* meta = findPart(parts, "meta.xml");
  if (meta != nullptr) (void)OpenDocumentPart(document).read(meta->bytes, meta->isCut);
  const ZipPart* content = findPart(parts, "content.xml");
  if (content == nullptr || !reader.read(content->bytes, content->isCut)) {
    return ReadFailure::decodingFailed;
  }
  return document.take();
}

}  // namespace norvast::extractor
