// Times of any 64-bit value.
#include "text/internet_date_time.h"

#include <gtest/gtest.h>

#include <limits>

namespace norvast {
namespace {

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
      {4107542400, "2100-03-01T00:00:00Z"},
      {253402300799, "9999-12-31T23:59:59Z"},
      {253402300800, "10000-01-01T00:00:00Z"},
      {-62135596800, "0001-01-01T00:00:00Z"},
      {-62167219201, "-0001-12-31T23:59:59Z"},
      {std::numeric_limits<std::int64_t>::max(), "292277026596-12-04T15:30:07Z"},
      {std::numeric_limits<std::int64_t>::min(), "-292277022657-01-27T08:29:52Z"},
  };
  for (const auto& row : rows) EXPECT_EQ(internetDateTime(row.seconds), row.text);
}

}  // namespace
}  // namespace norvast
