#include "text/internet_date_time.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace norvast {
namespace {

// The calendar repeats itself after 400 years, which are 146,097 days.
constexpr std::int64_t YEARS_AN_ERA = 400;
constexpr std::int64_t SECONDS_AN_ERA = std::int64_t{146'097} * 86'400;

}  // namespace

std::string internetDateTime(std::int64_t seconds) {
  // The library's years are ints, so it is asked for an instant in the era behind 1970.
  std::int64_t eras = seconds / SECONDS_AN_ERA;
  if (seconds % SECONDS_AN_ERA < 0) --eras;
  std::time_t withinEra = seconds % SECONDS_AN_ERA;
  if (withinEra < 0) withinEra += SECONDS_AN_ERA;
  std::tm time{};
  (void)gmtime_r(&withinEra, &time);  // fails for years beyond an int alone

  const std::int64_t year = 1900 + time.tm_year + eras * YEARS_AN_ERA;
  std::array<char, 64> text{};
  const int length = std::snprintf(text.data(), text.size(), "%s%04lld-%02d-%02dT%02d:%02d:%02dZ",
                                   year < 0 ? "-" : "", std::llabs(year), time.tm_mon + 1,
                                   time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec);
  return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace norvast
