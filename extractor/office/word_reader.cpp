#include "extractor/office/word_reader.h"

#include <array>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "document/table_row.h"
#include "extractor/markup/xml_reader.h"
#include "extractor/office/office_parts.h"
#include "text/ascii.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;
using Event = XmlReader::Event;

// Paragraph styles that make a heading, by their ids, which each language names its own way.
using HeadingStyles = std::set<std::string, std::less<>>;

// Their names are English in every file: "heading 1", "Title".
HeadingStyles headingStyles(const ZipParts& parts, std::string_view partName) {
  HeadingStyles styles;
  const ZipPart* part = findPart(parts, partName);
  if (part == nullptr) return styles;
  XmlReader xml(part->bytes);
  std::string id;
  for (Event event = xml.next(); event < Event::finished; event = xml.next()) {
    if (event != Event::start) continue;
    if (xml.name() == "style") id = xml.attribute("styleId");
    if (xml.name() != "name") continue;
    const std::string name = asciiLowerCase(xml.attribute("val"));
    if (name.starts_with("heading") || name == "title") styles.insert(id);
  }
  return styles;
}

// The main part of a file is a tree of these elements (ECMA-376-1, section 17; the prefix "w" is
// left out as XmlReader leaves it out):
//
//   p            a paragraph, with its properties in pPr first
//     pPr        pStyle val="ID" names a style of styles.xml; outlineLvl val="0" to "8" is a
//     heading r          a run of text of one look
//       t        text; the only element whose characters are text of the page
//       tab br cr noBreakHyphen    single characters
//       pict, drawing              may hold a text box: paragraphs within this paragraph
//   tbl tr tc    a table, its rows and its cells, which hold paragraphs and further tables
//   ins, del     recorded changes: what was deleted stands in delText, which is no t
// Takes the text of one part of the file.
class WordPart {
 public:
  WordPart(const HeadingStyles& styles, Kind kind, DocumentBuilder& document)
      : styles_(styles), kind_(kind), document_(document) {}

  // Elements that no rule here names are passed through: the text within them counts.
  // False when the part is not what it should be.
  bool read(const ZipPart& part) {
    XmlReader xml(part.bytes);
    Event event = xml.next();
    for (; event < Event::finished && !document_.isFull(); event = xml.next()) {
      if (event == Event::start) start(xml);
      if (event == Event::end) end(xml.name());
      if (event == Event::text && isText_) paragraph().text += xml.text();
    }
    return event != Event::failed || part.isCut;
  }

 private:
  struct Paragraph {
    std::string text;
    bool isHeading = false;
  };

  Paragraph& paragraph() {
    if (paragraphs_.empty()) paragraphs_.emplace_back();
    return paragraphs_.back();
  }

  void start(XmlReader& xml) {
    const std::string_view name = xml.name();
    if (name == "t") {
      isText_ = true;
    } else if (name == "p") {
      paragraphs_.emplace_back();
    } else if (name == "pPr") {
      readProperties(xml);
    } else if (name == "tab") {
      paragraph().text += '\t';
    } else if (name == "br" || name == "cr") {
      paragraph().text += '\n';
    } else if (name == "noBreakHyphen") {
      paragraph().text += '-';
    } else if (name == "textpath") {
      paragraph().text += xml.attribute("string");  // drawn as a picture
    } else if (name == "tbl") {
      ++tableDepth_;
    } else if (name == "tc") {
      if (tableDepth_ == 1) row_.startCell();
    } else if (name == "moveFrom" || name == "Fallback") {
      xml.skip();  // what stands elsewhere, too
    }
  }

  void readProperties(XmlReader& xml) {
    for (Event event = xml.next(); event < Event::finished; event = xml.next()) {
      if (event == Event::end && xml.name() == "pPr") return;
      if (event != Event::start) continue;
      if (xml.name() == "pStyle") {
        paragraph().isHeading = styles_.contains(xml.attribute("val"));
      } else if (xml.name() == "outlineLvl") {
        paragraph().isHeading = xml.attribute("val") != "9";  // 9 is running text
      } else if (xml.name() == "pPrChange") {
        xml.skip();
      }
    }
  }

  void end(std::string_view name) {
    if (name == "t") {
      isText_ = false;
    } else if (name == "p") {
      endParagraph();
    } else if (name == "tr") {
      if (tableDepth_ == 1) row_.finish(document_);
    } else if (name == "tbl") {
      if (tableDepth_ > 0) --tableDepth_;
    }
  }

  void endParagraph() {
    const Paragraph ended = paragraph();
    paragraphs_.pop_back();
    if (kind_ == Kind::paragraph && tableDepth_ > 0) {
      row_.add(ended.text);
    } else if (kind_ == Kind::paragraph && ended.isHeading) {
      document_.add(Kind::heading, ended.text);
    } else {
      document_.addLines(kind_, ended.text);
    }
  }

  const HeadingStyles& styles_;
  Kind kind_;
  DocumentBuilder& document_;
  std::vector<Paragraph> paragraphs_;  // a text box stands within the paragraph that holds it
  TableRow row_;
  std::size_t tableDepth_ = 0;
  bool isText_ = false;
};

// What stands beside the running text, in parts of their own, by the type of the relationship from
// the main part to it. A file may have several of each.
constexpr std::array<std::pair<std::string_view, Kind>, 5> SIDE_PARTS = {{
    {"footnotes", Kind::note},
    {"endnotes", Kind::note},
    {"comments", Kind::note},
    {"header", Kind::aside},
    {"footer", Kind::aside},
}};

}  // namespace

ReadDocument readWord(std::string_view bytes, std::size_t limitCharacters) {
  const auto read = readOfficeParts(bytes, "document");
  if (const auto* failure = std::get_if<ReadFailure>(&read)) return *failure;
  const auto& office = std::get<OfficeParts>(read);
  const auto relationships = relationshipsOf(office.parts, office.mainPart);
  const auto styles = headingStyles(office.parts, targetOfType(relationships, "styles"));

  DocumentBuilder document("Office Open XML", limitCharacters);
  addOfficeProperties(office.parts, document);
  if (!WordPart(styles, Kind::paragraph, document).read(*findPart(office.parts, office.mainPart))) {
    return ReadFailure::decodingFailed;
  }
  for (const auto& [type, kind] : SIDE_PARTS) {
    for (const Relationship& relationship : relationships) {
      const ZipPart* part =
          relationship.type == type ? findPart(office.parts, relationship.target) : nullptr;
      if (part != nullptr) (void)WordPart(styles, kind, document).read(*part);
    }
  }
  return document.take();
}

}  // namespace norvast::extractor
