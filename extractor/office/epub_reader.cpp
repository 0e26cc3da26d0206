#include "extractor/office/epub_reader.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "extractor/markup/html_reader.h"
#include "extractor/markup/xml_reader.h"
#include "extractor/office/zip_parts.h"

namespace norvast::extractor {
namespace {

using Event = XmlReader::Event;

// A book is a zip archive (EPUB 3.3, and 2.0 before it):
//   META-INF/container.xml   <rootfile full-path="OEBPS/book.opf"/>: where the package lies
//   OEBPS/book.opf           the package: dc:title, dc:creator;
//                            <item id="c1" href="c1.xhtml"/> for each file,
//                            <itemref idref="c1"/> in reading order
//   OEBPS/c1.xhtml           a page
//   META-INF/encryption.xml  <CipherReference URI="OEBPS/c1.xhtml"/> for each encrypted file
// "ml" at the end of a name takes xml, html and xhtml.
bool isWanted(std::string_view name) {
  for (const std::string_view suffix : {"ml", ".opf", ".htm"}) {
    if (name.ends_with(suffix)) return true;
  }
  return false;
}

// Name of the part that describes the book.
std::string packageName(const ZipParts& parts) {
  const ZipPart* container = findPart(parts, "META-INF/container.xml");
  if (container == nullptr) return {};
  XmlReader xml(container->bytes);
  for (Event event = xml.next(); event < Event::finished; event = xml.next()) {
    if (event == Event::start && xml.name() == "rootfile") return xml.attribute("full-path");
  }
  return {};
}

// Names of the book's pages in reading order; takes its title and author on the way.
std::optional<std::vector<std::string>> pageNames(const ZipPart& package, std::string_view name,
                                                  DocumentBuilder& document) {
  std::map<std::string, std::string> names;  // by id
  std::vector<std::string> pages;
  std::string property;
  XmlReader xml(package.bytes);
  Event event = xml.next();
  for (; event < Event::finished; event = xml.next()) {
    if (event == Event::text) {
      if (property == "title") document.setTitle(xml.text());
      if (property == "creator") document.setAuthor(xml.text());
    } else {
      property = event == Event::start ? xml.name() : std::string_view();
    }
    if (event != Event::start) continue;
    if (property == "item" && xml.attribute("properties") != "nav") {
      names[xml.attribute("id")] = resolvedPartName(name, xml.attribute("href"));
    } else if (property == "itemref") {
      const auto found = names.find(xml.attribute("idref"));
      if (found != names.end()) pages.push_back(found->second);
    }
  }
  if (event == Event::failed) return std::nullopt;
  return pages;
}

// Whether the book's pages are encrypted; its typefaces often are.
bool isEncrypted(const ZipParts& parts, const std::vector<std::string>& pages) {
  const ZipPart* encryption = findPart(parts, "META-INF/encryption.xml");
  if (encryption == nullptr || pages.empty()) return false;
  XmlReader xml(encryption->bytes);
  for (Event event = xml.next(); event < Event::finished; event = xml.next()) {
    if (event != Event::start || xml.name() != "CipherReference") continue;
    if (resolvedPartName("", xml.attribute("URI")) == pages.back()) return true;
  }
  return false;
}

}  // namespace

ReadDocument readEpub(std::string_view bytes, std::size_t limitCharacters) {
  const auto read = readZipParts(bytes, isWanted);
  if (const auto* failure = std::get_if<ReadFailure>(&read)) return *failure;
  const auto& parts = std::get<ZipParts>(read);
  const std::string name = packageName(parts);
  const ZipPart* package = findPart(parts, name);
  if (package == nullptr) return ReadFailure::decodingFailed;

  DocumentBuilder document("EPUB", limitCharacters);
  const auto pages = pageNames(*package, name, document);
  if (!pages) return ReadFailure::decodingFailed;
  if (isEncrypted(parts, *pages)) return ReadFailure::encrypted;
  for (const std::string& page : *pages) {
    const ZipPart* part = findPart(parts, page);
    if (part == nullptr || document.isFull()) continue;
    if (const auto failure = addHtml(part->bytes, {}, document)) return *failure;
  }
  return document.take();
}

}  // namespace norvast::extractor
