#include "extractor/cell_formats.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <optional>
#include <set>
#include <system_error>

#include "extractor/reading_bounds.h"
#include "extractor/xml_reader.h"

namespace norvast {
namespace {

using Event = XmlReader::Event;

// 9999-12-31, behind which there are no dates.
constexpr double MOST_DAYS = 2'958'465;

// Formats without a code of their own in the file (ECMA-376, 18.8.30).
bool isBuiltInDate(int format) {
  return (format >= 14 && format <= 22) || (format >= 27 && format <= 36) ||
         (format >= 45 && format <= 47) || (format >= 50 && format <= 58);
}

// Letters of date parts, but those of texts and of conditions: [Red]0.00" days".
bool isDateCode(std::string_view code) {
  char closing = 0;
  for (const char character : code) {
    if (closing != 0) {
      if (character == closing) closing = 0;
    } else if (character == '"') {
      closing = '"';
    } else if (character == '[') {
      closing = ']';
    } else if (std::string_view("ymdhsYMDHS").find(character) != std::string_view::npos) {
      return true;
    }
  }
  return false;
}

template <typename Number>
std::optional<Number> parsed(std::string_view text) {
  Number number{};
  const char* behind = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), behind, number);
  if (error != std::errc() || end != behind) return std::nullopt;
  return number;
}

template <typename... Values>
std::string printed(const char* format, Values... values) {
  std::array<char, 40> text{};
  const int length = std::snprintf(text.data(), text.size(), format, values...);
  return {text.data(), static_cast<std::size_t>(length)};
}

std::string date(double days, bool from1904) {
  using namespace std::chrono;
  constexpr int MINUTES_A_DAY = 24 * 60;
  const double whole = std::floor(days);
  const int minutes = static_cast<int>(std::lround((days - whole) * MINUTES_A_DAY));
  auto time = printed("%02d:%02d", minutes / 60 % 24, minutes % 60);
  if (days < 1) return time;
  const sys_days first = from1904 ? sys_days{year{1904} / 1 / 1} : sys_days{year{1899} / 12 / 30};
  const year_month_day day{first + std::chrono::days(static_cast<int>(whole))};
  const auto text = printed("%04d-%02u-%02u", static_cast<int>(day.year()),
                            static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
  return minutes % MINUTES_A_DAY == 0 ? text : text + " " + time;
}

}  // namespace

CellFormats::CellFormats(const ZipPart* styles, bool from1904) : from1904_(from1904) {
  if (styles == nullptr) return;
  std::set<int> dateFormats;
  XmlReader xml(styles->bytes);
  bool isInCells = false;
  for (Event event = xml.next(); event < Event::finished; event = xml.next()) {
    const std::string_view name = event == Event::text ? std::string_view() : xml.name();
    if (name == "cellXfs") isInCells = event == Event::start;
    if (event != Event::start) continue;
    const int format = parsed<int>(xml.attribute("numFmtId")).value_or(0);
    if (name == "numFmt" && isDateCode(xml.attribute("formatCode"))) dateFormats.insert(format);
    if (name == "xf" && isInCells && isDate_.size() < MOST_TABLE_ENTRIES) {
      isDate_.push_back(isBuiltInDate(format) || dateFormats.contains(format));
    }
  }
}

std::string CellFormats::shown(std::string_view value, std::string_view style) const {
  const auto number = parsed<double>(value);
  if (!number || !std::isfinite(*number)) return std::string(value);
  const auto index = parsed<std::size_t>(style);
  const bool isDate = index && *index < isDate_.size() && isDate_[*index];
  if (isDate && *number >= 0 && *number <= MOST_DAYS) return date(*number, from1904_);
  return printed("%.15g", *number);
}

}  // namespace norvast
