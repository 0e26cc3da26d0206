#include "text/internet_date_time.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace norvast {
namespace {

constexpr std::int64_t SECONDS_A_DAY = 86400;

struct Date {
  std::int64_t year;
  int month;
  int day;
};

// Howard Hinnant, "chrono-Compatible Low-Level Date Algorithms", civil_from_days. Years are
// counted from March, so that the leap day ends a year; an era is 400 of them.
Date dateOfDay(std::int64_t daysSince1970) {
  constexpr std::int64_t DAYS_AN_ERA = 146097;
  constexpr std::int64_t DAYS_FROM_YEAR_ZERO_TO_1970 = 719468;
  const std::int64_t days = daysSince1970 + DAYS_FROM_YEAR_ZERO_TO_1970;
  const std::int64_t era = (days >= 0 ? days : days - DAYS_AN_ERA + 1) / DAYS_AN_ERA;
  const std::int64_t dayOfEra = days - era * DAYS_AN_ERA;
  const std::int64_t yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const auto dayOfYear =
      static_cast<int>(dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100));
  const int monthFromMarch = (5 * dayOfYear + 2) / 153;
  const int day = dayOfYear - (153 * monthFromMarch + 2) / 5 + 1;
  const int month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
  return {yearOfEra + era * 400 + (month <= 2 ? 1 : 0), month, day};
}

}  // namespace

std::string internetDateTime(std::int64_t seconds) {
  std::int64_t days = seconds / SECONDS_A_DAY;
  auto secondOfDay = static_cast<int>(seconds % SECONDS_A_DAY);
  if (secondOfDay < 0) {
    secondOfDay += static_cast<int>(SECONDS_A_DAY);
    --days;
  }

  const Date date = dateOfDay(days);
  std::array<char, 64> text{};
  const int length =
      std::snprintf(text.data(), text.size(), "%s%04lld-%02d-%02dT%02d:%02d:%02dZ",
                    date.year < 0 ? "-" : "", std::llabs(date.year), date.month, date.day,
                    secondOfDay / 3600, secondOfDay / 60 % 60, secondOfDay % 60);
  return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace norvast
