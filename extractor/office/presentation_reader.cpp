#include "extractor/office/presentation_reader.h"

#include <string>
#include <vector>

#include "document/table_row.h"
#include "extractor/markup/xml_reader.h"
#include "extractor/office/office_parts.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;
using Event = XmlReader::Event;

// A slide is a tree of shapes (ECMA-376-1, section 19.3; texts as in section 21.1.2):
//   sp             a shape
//     ph type="title"    what it stands for in the layout of the slide; absent for a free shape
//     p r t        paragraphs, runs and text, as in a word processing file
//   graphicFrame tbl tr tc    a table
// Diagrams (SmartArt) keep their texts in a part of their own, in the same elements.
// Takes the text of one slide, of its notes or of a diagram on it.
class SlidePart {
 public:
  SlidePart(Kind kind, DocumentBuilder& document) : kind_(kind), document_(document) {}

  bool read(const ZipPart& part) {
    XmlReader xml(part.bytes);
    Event event = xml.next();
    for (; event < Event::finished && !document_.isFull(); event = xml.next()) {
      if (event == Event::start) start(xml);
      if (event == Event::end) end(xml.name());
      if (event == Event::text && isText_) text_ += xml.text();
    }
    return event != Event::failed || part.isCut;
  }

 private:
  void start(XmlReader& xml) {
    const std::string_view name = xml.name();
    if (name == "t") {
      isText_ = true;
    } else if (name == "sp") {
      placeholder_.clear();
    } else if (name == "ph") {
      placeholder_ = xml.attribute("type");
    } else if (name == "p") {
      text_.clear();
    } else if (name == "br") {
      text_ += '\n';
    } else if (name == "tbl") {
      isInTable_ = true;
    } else if (name == "tc") {
      row_.startCell();
    } else if (name == "Fallback") {
      xml.skip();  // another form of what has been read
    }
  }

  void end(std::string_view name) {
    if (name == "t") {
      isText_ = false;
    } else if (name == "p") {
      endParagraph();
    } else if (name == "tr") {
      row_.finish(document_);
    } else if (name == "tbl") {
      isInTable_ = false;
    }
  }

  void endParagraph() {
    const bool isTitle = placeholder_ == "title" || placeholder_ == "ctrTitle";
    // Number and date of the slide, and what stands at the foot of all.
    const bool isFurniture = placeholder_ == "sldNum" || placeholder_ == "dt" ||
                             placeholder_ == "ftr" || placeholder_ == "hdr";
    if (isInTable_) {
      row_.add(text_);
    } else if (isTitle && kind_ == Kind::paragraph) {
      document_.add(Kind::heading, text_);
    } else if (!isFurniture) {
      document_.addLines(kind_, text_);
    }
  }

  Kind kind_;
  DocumentBuilder& document_;
  std::string text_;
  std::string placeholder_;  // the part that a shape plays on the slide
  TableRow row_;
  bool isText_ = false;
  bool isInTable_ = false;
};

// presentation.xml lists the slides as <p:sldId id="256" r:id="rId2"/>: the relationship names the
// part. The numbers in the names of the parts tell nothing of the order.
// Names of the slides' parts, in the order of the presentation.
std::optional<std::vector<std::string>> slideNames(const OfficeParts& office) {
  const auto relationships = relationshipsOf(office.parts, office.mainPart);
  std::vector<std::string> names;
  XmlReader xml(findPart(office.parts, office.mainPart)->bytes);
  Event event = xml.next();
  for (; event < Event::finished; event = xml.next()) {
    if (event != Event::start || xml.name() != "sldId") continue;
    names.push_back(targetOfId(relationships, xml.relationshipId()));
  }
  if (event == Event::failed) return std::nullopt;
  return names;
}

void addSideParts(const ZipParts& parts, std::string_view slide, DocumentBuilder& document) {
  for (const Relationship& relationship : relationshipsOf(parts, slide)) {
    const ZipPart* part = findPart(parts, relationship.target);
    if (part == nullptr) continue;
    if (relationship.type == "diagramData") {
      (void)SlidePart(Kind::paragraph, document).read(*part);
    } else if (relationship.type == "notesSlide") {
      (void)SlidePart(Kind::note, document).read(*part);
    }
  }
}

}  // namespace

ReadDocument readPresentation(std::string_view bytes, std::size_t limitCharacters) {
  const auto read = readOfficeParts(bytes, "presentation");
  if (const auto* failure = std::get_if<ReadFailure>(&read)) return *failure;
  const auto& office = std::get<OfficeParts>(read);
  const auto names = slideNames(office);
  if (!names) return ReadFailure::decodingFailed;

  DocumentBuilder document("Office Open XML", limitCharacters);
  addOfficeProperties(office.parts, document);
  std::size_t number = 0;
  for (const std::string& name : *names) {
    ++number;
    const ZipPart* part = findPart(office.parts, name);
    if (part == nullptr || document.isFull()) continue;
    document.add(Kind::part, "Slide " + std::to_string(number));
    if (!SlidePart(Kind::paragraph, document).read(*part)) return ReadFailure::decodingFailed;
    addSideParts(office.parts, name, document);
  }
  return document.take();
}

}  // namespace norvast::extractor
