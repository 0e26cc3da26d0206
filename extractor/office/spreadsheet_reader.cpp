#include "extractor/office/spreadsheet_reader.h"

#include <charconv>
#include <string>
#include <utility>
#include <vector>

#include "document/reading_bounds.h"
#include "document/table_row.h"
#include "extractor/markup/xml_reader.h"
#include "extractor/office/cell_formats.h"
#include "extractor/office/office_parts.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;
using Event = XmlReader::Event;

// A workbook (ECMA-376-1, section 18) has these parts:
//   workbook.xml       <sheet name="..." r:id="..."/> in the order of the tabs;
//                      workbookPr date1904="1": days are counted from 1904-01-01
//   sharedStrings.xml  <si><t>text</t></si>, or in runs <si><r><t>a</t></r><r><t>b</t></r></si>
//   worksheets/*.xml   <row><c t="TYPE" s="STYLE"><v>VALUE</v></c></row>
//   drawings, comments texts beside the cells, each with a part of its own for a sheet
struct Sheet {
  std::string name;
  std::string partName;
};

struct Workbook {
  std::vector<Sheet> sheets;
  bool from1904 = false;
};

std::optional<Workbook> readWorkbook(const OfficeParts& office,
                                     const std::vector<Relationship>& relationships) {
  Workbook workbook;
  XmlReader xml(findPart(office.parts, office.mainPart)->bytes);
  Event event = xml.next();
  for (; event < Event::finished; event = xml.next()) {
    if (event != Event::start) continue;
    if (xml.name() == "workbookPr") {
      const std::string base = xml.attribute("date1904");
      workbook.from1904 = base == "1" || base == "true";
    }
    if (xml.name() == "sheet") {
      workbook.sheets.push_back(
          {xml.attribute("name"), targetOfId(relationships, xml.relationshipId())});
    }
  }
  if (event == Event::failed) return std::nullopt;
  return workbook;
}

// The texts that cells refer to by number, all runs of one together; how it is spoken is left out.
std::vector<std::string> sharedTexts(const ZipPart* part) {
  std::vector<std::string> texts;
  if (part == nullptr) return texts;
  XmlReader xml(part->bytes);
  bool isText = false;
  for (Event event = xml.next(); event < Event::finished; event = xml.next()) {
    if (event == Event::text) {
      if (isText && !texts.empty()) texts.back() += xml.text();
      continue;
    }
    const bool isStart = event == Event::start;
    if (isStart && xml.name() == "rPh") xml.skip();
    if (isStart && xml.name() == "si" && texts.size() < MOST_TABLE_ENTRIES) texts.emplace_back();
    if (xml.name() == "t") isText = isStart;
  }
  return texts;
}

class SheetPart {
 public:
  SheetPart(const std::vector<std::string>& shared, const CellFormats& formats,
            DocumentBuilder& document)
      : shared_(shared), formats_(formats), document_(document) {}

  bool read(const ZipPart& part) {
    XmlReader xml(part.bytes);
    Event event = xml.next();
    for (; event < Event::finished && !document_.isFull(); event = xml.next()) {
      if (event == Event::text) {
        if (isValue_) value_ += xml.text();
        continue;
      }
      const std::string_view name = xml.name();
      if (name == "v" || name == "t") isValue_ = event == Event::start;
      if (name == "c" && event == Event::start) startCell(xml);
      if (name == "c" && event == Event::end) row_.add(shownValue());
      if (name == "row" && event == Event::end) row_.finish(document_);
    }
    return event != Event::failed || part.isCut;
  }

 private:
  void startCell(const XmlReader& xml) {
    row_.startCell();
    value_.clear();
    type_ = xml.attribute("t");
    style_ = xml.attribute("s");
  }

  // By the type t of the cell (section 18.18.11): n or none, a number that its style shows; s, the
  // number of a shared text, counted from 0; b, 0 or 1; str (of a formula), inlineStr, e (an error
  // such as #DIV/0!) and d (a date by ISO 8601), the text as it stands.
  std::string shownValue() const {
    if (type_.empty() || type_ == "n") return formats_.shown(value_, style_);
    if (type_ == "b") return value_ == "1" ? "TRUE" : "FALSE";
    if (type_ != "s") return value_;
    std::size_t index = shared_.size();
    (void)std::from_chars(value_.data(), value_.data() + value_.size(), index);
    return index < shared_.size() ? shared_[index] : std::string();
  }

  const std::vector<std::string>& shared_;
  const CellFormats& formats_;
  DocumentBuilder& document_;
  TableRow row_;
  std::string value_;
  std::string type_;
  std::string style_;
  bool isValue_ = false;
};

// Adds the text of each element of that name, which holds it in runs.
void addTexts(const ZipPart* part, std::string_view element, Kind kind, DocumentBuilder& document) {
  if (part == nullptr) return;
  XmlReader xml(part->bytes);
  std::string text;
  bool isText = false;
  for (Event event = xml.next(); event < Event::finished; event = xml.next()) {
    if (event == Event::text) {
      if (isText) text += xml.text();
      continue;
    }
    if (xml.name() == "t") isText = event == Event::start;
    if (xml.name() == element && event == Event::end) {
      document.addLines(kind, std::exchange(text, {}));
    }
  }
}

}  // namespace

ReadDocument readSpreadsheet(std::string_view bytes, std::size_t limitCharacters) {
  const auto read = readOfficeParts(bytes, "workbook");
  if (const auto* failure = std::get_if<ReadFailure>(&read)) return *failure;
  const auto& office = std::get<OfficeParts>(read);
  const auto relationships = relationshipsOf(office.parts, office.mainPart);
  const auto workbook = readWorkbook(office, relationships);
  if (!workbook) return ReadFailure::decodingFailed;

  const auto partOf = [&](std::string_view type) {
    return findPart(office.parts, targetOfType(relationships, type));
  };
  const auto shared = sharedTexts(partOf("sharedStrings"));
  const CellFormats formats(partOf("styles"), workbook->from1904);
  DocumentBuilder document("Office Open XML", limitCharacters);
  addOfficeProperties(office.parts, document);
  for (const Sheet& sheet : workbook->sheets) {
    const ZipPart* part = findPart(office.parts, sheet.partName);
    if (part == nullptr || document.isFull()) continue;
    document.add(Kind::part, sheet.name);
    if (!SheetPart(shared, formats, document).read(*part)) return ReadFailure::decodingFailed;
    const auto beside = relationshipsOf(office.parts, sheet.partName);
    addTexts(findPart(office.parts, targetOfType(beside, "drawing")), "p", Kind::paragraph,
             document);
    addTexts(findPart(office.parts, targetOfType(beside, "comments")), "comment", Kind::note,
             document);
  }
  return document.take();
}

}  // namespace norvast::extractor
