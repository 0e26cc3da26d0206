// Numbers and times as texts.
#include <gtest/gtest.h>

#include "text/decimal_integer.h"
#include "text/internet_date_time.h"

namespace norvast {
namespace {

TEST(DecimalInteger, IsSignAndDigitsAlone) {
  const struct {
    const char* text;
    std::optional<std::int64_t> number;
  } rows[] = {
      {"+12", 12},
      {"-3", -3},
      {"9223372036854775807", INT64_MAX},
      {"-9223372036854775808", INT64_MIN},
      {"9223372036854775808", std::nullopt},
      {"", std::nullopt},
      {"+", std::nullopt},
      {"+-1", std::nullopt},
      {"12 ", std::nullopt},
      {"1e3", std::nullopt},
      {"0x10", std::nullopt},
      {"١", std::nullopt},
  };
  for (const auto& row : rows) EXPECT_EQ(parseDecimalInteger(row.text), row.number) << row.text;
}

TEST(InternetDateTime, FormatsAnyValue) {
  const struct {
    std::int64_t seconds;
    const char* text;
  } rows[] = {
      {0, "1970-01-01T00:00:00Z"},
      {-1, "1969-12-31T23:59:59Z"},
      {1700000000, "2023-11-14T22:13:20Z"},
      {951782400, "2000-02-29T00:00:00Z"},
      {4107542399, "2100-02-28T23:59:59Z"},
      {253402300800, "10000-01-01T00:00:00Z"},
      {-62135596800, "0001-01-01T00:00:00Z"},
      {-62167219201, "-0001-12-31T23:59:59Z"},
      {INT64_MAX, "292277026596-12-04T15:30:07Z"},
      {INT64_MIN, "-292277022657-01-27T08:29:52Z"},
  };
  for (const auto& row : rows) EXPECT_EQ(internetDateTime(row.seconds), row.text);
}

}  // namespace
}  // namespace norvast
