#include "extractor/office/cell_formats.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <map>
#include <optional>
#include <system_error>

#include "document/reading_bounds.h"
#include "extractor/markup/xml_reader.h"

namespace norvast::extractor {
namespace {

using Event = XmlReader::Event;

// 9999-12-31, behind which there are no dates.
constexpr double MOST_DAYS = 2'958'465;

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

// The day that the number stands for. The count from 1900 has a 29th of February in that year, as
// a spreadsheet had that was to be compatible with (ECMA-376, 18.17.4.1).
std::string dayText(long long days, bool from1904) {
  using namespace std::chrono;
  constexpr long long FALSE_DAY = 60;
  if (!from1904 && days == FALSE_DAY) return "1900-02-29";
  const sys_days from1900{year{1899} / 12 / (days < FALSE_DAY ? 31 : 30)};
  const sys_days first = from1904 ? sys_days{year{1904} / 1 / 1} : from1900;
  const year_month_day day{first + std::chrono::days(days)};
  return printed("%04d-%02u-%02u", static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                 static_cast<unsigned>(day.day()));
}

std::string timeText(long long seconds, bool withSeconds) {
  const auto text = printed("%02lld:%02lld", seconds / 3600, seconds / 60 % 60);
  return withSeconds ? text + printed(":%02lld", seconds % 60) : text;
}

// To the second, as times that were computed lie a little beside it. Nothing for a day before the
// first one.
std::optional<std::string> dateText(double number, const NumberFormat& format, bool from1904) {
  constexpr long long SECONDS_A_DAY = 86'400;
  const long long seconds = std::llround(number * SECONDS_A_DAY);
  const long long days = seconds / SECONDS_A_DAY;
  if (format.isElapsed) return timeText(seconds, format.hasSeconds);
  const auto time = timeText(seconds % SECONDS_A_DAY, format.hasSeconds);
  if (!format.hasDate) return time;
  const bool hasDay = days > 0 || from1904;
  if (!hasDay) return format.hasTime ? std::optional(time) : std::nullopt;
  const auto day = dayText(days, from1904);
  return format.hasTime && seconds % SECONDS_A_DAY != 0 ? day + " " + time : day;
}

}  // namespace

// Of styles.xml (ECMA-376-1, section 18.8):
//   <numFmts><numFmt numFmtId="164" formatCode="yyyy-mm-dd"/></numFmts>   written ones
//   <cellXfs><xf numFmtId="14"/>...</cellXfs>    the style of a cell is the number of an xf here
// Elements xf stand in cellStyleXfs, too, which cells do not refer to. Numbers below 164 are built
// in (section 18.8.30).
CellFormats::CellFormats(const ZipPart* styles, bool from1904) : from1904_(from1904) {
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

// A number has 15 significant digits in a cell, so that 0.1 + 0.2 is shown as 0.3.
std::string CellFormats::shown(std::string_view value, std::string_view style) const {
  const auto number = parsed<double>(value);
  if (!number || !std::isfinite(*number)) return std::string(value);
  const auto index = parsed<std::size_t>(style);
  const auto format = index && *index < formats_.size() ? formats_[*index] : NumberFormat();
  if (format.isDate() && *number >= 0 && *number <= MOST_DAYS) {
    if (auto text = dateText(*number, format, from1904_)) return *std::move(text);
  }
  return printed("%.15g", *number);
}

}  // namespace norvast::extractor
