#include "extractor/picture/photo_place.h"

#include <algorithm>
#include <array>
#include <vector>

#include "document/document_builder.h"
#include "extractor/markup/xml_reader.h"
#include "text/ascii.h"
#include "text/utf8.h"

namespace norvast::extractor {
namespace {

using Event = XmlReader::Event;

// Packets are text, at most some thousand bytes of it, and a place is a short name.
constexpr std::size_t MOST_PACKET_BYTES = std::size_t{1} << 20;
constexpr std::size_t MOST_NAME_BYTES = 100;

// A packet (ISO 16684-1) is XML with the fields of a description as attributes or elements:
//   <rdf:Description photoshop:City="Rome" photoshop:Country="Italy"/>
//   <Iptc4xmpCore:Location>Trastevere</Iptc4xmpCore:Location>
// From the part of a town to the country; the same names as elements and as attributes.
constexpr std::array<std::string_view, 4> FIELDS = {"Location", "City", "State", "Country"};
using Names = std::array<std::string, FIELDS.size()>;

// Programs find packets without knowing the format around them, as the standard provides for.
std::string_view packetIn(std::string_view bytes) {
  constexpr std::string_view START = "<x:xmpmeta";
  constexpr std::string_view END = "</x:xmpmeta>";
  const std::size_t start = bytes.find(START);
  if (start == std::string_view::npos) return {};
  const std::string_view packet = bytes.substr(start, MOST_PACKET_BYTES);
  const std::size_t end = packet.find(END);
  return end == std::string_view::npos ? std::string_view() : packet.substr(0, end + END.size());
}

void setName(std::string& name, std::string_view value) {
  if (name.empty()) name = firstBytes(collapsed(value), MOST_NAME_BYTES);
}

}  // namespace

std::string photoPlace(std::string_view bytes) {
  const std::string_view packet = packetIn(bytes);
  if (packet.empty()) return {};
  Names names;
  XmlReader xml(packet);
  std::string text;
  for (Event event = xml.next(); event < Event::finished; event = xml.next()) {
    if (event == Event::text) {
      text += xml.text();
      continue;
    }
    const auto* field = std::find(FIELDS.begin(), FIELDS.end(), xml.name());
    const bool isField = event == Event::end && field != FIELDS.end();
    if (isField) setName(names[static_cast<std::size_t>(field - FIELDS.begin())], text);
    text.clear();
    for (std::size_t at = 0; event == Event::start && at < FIELDS.size(); ++at) {
      setName(names[at], xml.attribute(FIELDS[at]));
    }
  }
  auto* const behind = std::remove(names.begin(), names.end(), std::string());
  return joined(std::vector(names.begin(), behind), ", ");
}

}  // namespace norvast::extractor
