// The record of one row, and the decimal integers in it.
#include "store/file_record.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "json/json_writer.h"
#include "text/decimal_integer.h"

namespace norvast {
namespace {

TEST(FileRecord, HasTheKeysThatItsColumnsGive) {
  const struct {
    std::vector<std::string> columns;
    const char* record;
  } rows[] = {
      {{"/a/b.pdf", "b.pdf", "pdf", "", "", ""},
       R"({"ext":"pdf","name":"b.pdf","path":"\/a\/b.pdf"})"},
      {{"/a/b", "b", "", "Documents", "2048", "1700000000", "ignored"},
       R"({"ext":"","modified":"2023-11-14T22:13:20Z","name":"b","path":"\/a\/b",)"
       R"("size_bytes":2048,"type_group":"Documents"})"},
      {{"p", "n", "e", "", "12.0", "1700000000.0"}, R"({"ext":"e","name":"n","path":"p"})"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(writeJson(fileDict(row.columns), JsonStyle::compact), row.record);
  }
}

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

}  // namespace
}  // namespace norvast
