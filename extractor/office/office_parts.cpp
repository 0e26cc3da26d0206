#include "extractor/office/office_parts.h"

#include <algorithm>
#include <utility>

#include "extractor/markup/xml_reader.h"

namespace norvast::extractor {
namespace {

// Colours and typefaces (theme) and data for programs (customXml) have no text for readers.
bool mayHoldText(std::string_view name) {
  return (name.ends_with(".xml") || name.ends_with(".rels")) &&
         name.find("/theme/") == std::string_view::npos && !name.starts_with("customXml/");
}

// The relationships of the part "word/document.xml" stand in "word/_rels/document.xml.rels", those
// of the package itself in "_rels/.rels" (ECMA-376-2, section 6.5.2).
std::string relationshipsName(std::string_view name) {
  const std::size_t start = name.rfind('/') + 1;  // npos + 1 is 0: at the top
  return std::string(name.substr(0, start)) + "_rels/" + std::string(name.substr(start)) + ".rels";
}

// Name of the outermost element; empty when the part does not begin as XML.
std::string rootOf(const ZipPart& part) {
  XmlReader xml(part.bytes);
  return std::string(xml.next() == XmlReader::Event::start ? xml.name() : std::string_view());
}

}  // namespace

std::variant<OfficeParts, ReadFailure> readOfficeParts(std::string_view bytes,
                                                       std::string_view root) {
  auto read = readZipParts(bytes, mayHoldText);
  if (const auto* failure = std::get_if<ReadFailure>(&read)) return *failure;
  OfficeParts office{std::move(std::get<ZipParts>(read)), {}};
  office.mainPart = targetOfType(relationshipsOf(office.parts, ""), "officeDocument");
  const ZipPart* main = findPart(office.parts, office.mainPart);
  if (main == nullptr || rootOf(*main) != root) return ReadFailure::decodingFailed;
  return office;
}

// A part of relationships (ECMA-376-2, section 6.5.3.4):
//   <Relationship Id="rId1" Type="http://.../styles" Target="styles.xml" TargetMode="Internal"/>
// The address in Type differs between editions of the standard; its last word does not. A target is
// relative to the part that the relationships belong to.
std::vector<Relationship> relationshipsOf(const ZipParts& parts, std::string_view name) {
  std::vector<Relationship> relationships;
  const ZipPart* part = findPart(parts, relationshipsName(name));
  if (part == nullptr) return relationships;
  XmlReader xml(part->bytes);
  for (auto event = xml.next(); event < XmlReader::Event::finished; event = xml.next()) {
    if (event != XmlReader::Event::start || xml.name() != "Relationship") continue;
    if (xml.attribute("TargetMode") == "External") continue;
    const std::string type = xml.attribute("Type");
    relationships.push_back({xml.attribute("Id"), type.substr(type.rfind('/') + 1),
                             resolvedPartName(name, xml.attribute("Target"))});
  }
  return relationships;
}

std::string targetOfId(const std::vector<Relationship>& relationships, std::string_view id) {
  const auto found = std::find_if(relationships.begin(), relationships.end(),
                                  [id](const Relationship& each) { return each.id == id; });
  return found == relationships.end() ? std::string() : found->target;
}

std::string targetOfType(const std::vector<Relationship>& relationships, std::string_view type) {
  const auto found = std::find_if(relationships.begin(), relationships.end(),
                                  [type](const Relationship& each) { return each.type == type; });
  return found == relationships.end() ? std::string() : found->target;
}

// Title and author stand in docProps/core.xml as dc:title and dc:creator (ECMA-376-2, section 8).
void addOfficeProperties(const ZipParts& parts, DocumentBuilder& document) {
  const auto name = targetOfType(relationshipsOf(parts, ""), "core-properties");
  const ZipPart* part = findPart(parts, name);
  if (part == nullptr) return;
  XmlReader xml(part->bytes);
  std::string element;
  for (auto event = xml.next(); event < XmlReader::Event::finished; event = xml.next()) {
    if (event == XmlReader::Event::start) element = xml.name();
    if (event != XmlReader::Event::text) continue;
    if (element == "title") document.setTitle(xml.text());
    if (element == "creator") document.setAuthor(xml.text());
  }
}

}  // namespace norvast::extractor
