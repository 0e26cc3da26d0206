#include "extractor/office/cell_formats.h"

#include <charconv>
#include <cmath>
#include <map>
#include <optional>
#include <system_error>

#include "document/reading_bounds.h"
#include "extractor/markup/xml_reader.h"

namespace norvast::extractor {
namespace {

using Event = XmlReader::Event;

template <typename Number>
std::optional<Number> parsed(std::string_view text) {
  Number number{};
  const char* behind = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), behind, number);
  if (error != std::errc() || end != behind) return std::nullopt;
  return number;
}

}  // namespace

// Of styles.xml (ECMA-376-1, section 18.8):
//   <numFmts><numFmt numFmtId="164" formatCode="yyyy-mm-dd"/></numFmts>   written ones
//   <cellXfs><xf numFmtId="14"/>...</cellXfs>    the style of a cell is the number of an xf here
// Elements xf stand in cellStyleXfs, too, which cells do not refer to. Numbers below 164 are built
// in (section 18.8.30).
CellFormats::CellFormats(const ZipPart* styles, DayCount count) : count_(count) {
  if (styles == nullptr) return;
  std::map<int, NumberFormat> written;
  XmlReader xml(styles->bytes);
  bool isInCells = false;
  for (Event event = xml.next(); event < Event::finished; event = xml.next()) {
    const std::string_view name = event == Event::text ? std::string_view() : xml.name();
    if (name == "cellXfs") isInCells = event == Event::start;
    if (event != Event::start) continue;
    const int number = parsed<int>(xml.attribute("numFmtId")).value_or(0);
    if (name == "numFmt") written.emplace(number, numberFormat(xml.attribute("formatCode")));
    if (name == "xf" && isInCells && formats_.size() < MOST_TABLE_ENTRIES) {
      const auto found = written.find(number);
      formats_.push_back(found == written.end() ? builtInNumberFormat(number) : found->second);
    }
  }
}

std::string CellFormats::shown(std::string_view value, std::string_view style) const {
  const auto number = parsed<double>(value);
  if (!number || !std::isfinite(*number)) return std::string(value);
  const auto index = parsed<std::size_t>(style);
  const auto format = index && *index < formats_.size() ? formats_[*index] : NumberFormat();
  return shownNumber(*number, format, count_);
}

}  // namespace norvast::extractor
