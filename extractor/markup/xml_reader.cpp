#include "extractor/markup/xml_reader.h"

#include <limits>

namespace norvast::extractor {
namespace {

// Neither entities nor a document type are loaded from files or the network, and entities stay
// unexpanded: one may stand for thousands of millions of characters (NOENT and DTDLOAD are not
// set).
constexpr int OPTIONS = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;

std::string_view view(const xmlChar* text) {
  return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

// The value of the current element's first attribute for which `isWanted` holds.
template <typename IsWanted>
std::string attributeValue(xmlTextReader* reader, IsWanted isWanted) {
  std::string value;
  while (xmlTextReaderMoveToNextAttribute(reader) == 1) {
    if (!isWanted()) continue;
    value = view(xmlTextReaderConstValue(reader));
    break;
  }
  (void)xmlTextReaderMoveToElement(reader);  // 0 where there was no attribute to leave
  return value;
}

}  // namespace

XmlReader::XmlReader(std::string_view bytes, const char* encoding) {
  if (bytes.size() > std::size_t{std::numeric_limits<int>::max()}) return;
  const int options = encoding == nullptr ? OPTIONS : OPTIONS | XML_PARSE_IGNORE_ENC;
  reader_.reset(
      xmlReaderForMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, encoding, options));
}

XmlReader::Event XmlReader::next() {
  if (!reader_ || event_ == Event::failed) return Event::failed;
  // The library tells <a/> as one event; whoever counts depths needs the end, too.
  if (isEmptyElement_) {
    isEmptyElement_ = false;
    return event_ = Event::end;
  }
  for (;;) {
    const int found = xmlTextReaderRead(reader_.get());
    if (found != 1) return event_ = found == 0 ? Event::finished : Event::failed;
    switch (xmlTextReaderNodeType(reader_.get())) {
      case XML_READER_TYPE_ELEMENT:
        isEmptyElement_ = xmlTextReaderIsEmptyElement(reader_.get()) == 1;
        return event_ = Event::start;
      case XML_READER_TYPE_END_ELEMENT:
        return event_ = Event::end;
      case XML_READER_TYPE_TEXT:
      case XML_READER_TYPE_CDATA:
      case XML_READER_TYPE_SIGNIFICANT_WHITESPACE:
        return event_ = Event::text;
      default:
        break;
    }
  }
}

void XmlReader::skip() {
  for (std::size_t depth = 1; depth > 0;) {
    const Event event = next();
    if (event == Event::finished || event == Event::failed) return;
    if (event == Event::start) ++depth;
    if (event == Event::end) --depth;
  }
}

std::string_view XmlReader::name() const {
  return view(xmlTextReaderConstLocalName(reader_.get()));
}

std::string XmlReader::attribute(std::string_view name) const {
  return attributeValue(reader_.get(), [this, name] { return this->name() == name; });
}

std::string XmlReader::relationshipId() const {
  return attributeValue(reader_.get(), [this] {
    return view(xmlTextReaderConstNamespaceUri(reader_.get())).ends_with("/relationships");
  });
}

std::string_view XmlReader::text() const { return view(xmlTextReaderConstValue(reader_.get())); }

}  // namespace norvast::extractor
