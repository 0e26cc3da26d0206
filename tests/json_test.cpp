// JSON in and out: what parses, what must not, how numbers come back, and the two styles.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "json/json_parser.h"
#include "json/json_writer.h"

namespace norvast {
namespace {

using namespace std::string_literals;

std::string compact(const Json& value) {
  return writeJson(value, JsonStyle::compact).value_or("(not written)");
}

std::string nested(std::size_t levels) {
  return std::string(levels, '[') + std::string(levels, ']');
}

TEST(JsonParser, AcceptsAndGivesBackTheSameValue) {
  const std::string texts[] = {
      "{}",
      "[]",
      "[null,true,false]",
      "[0,-0,-1,1.0,1e2,-0.0,1E+5,9223372036854775807,9223372036854775808,-9223372036854775808]",
      "[-9223372036854775809,18446744073709551615,18446744073709551616,12345678901234567890123]",
      R"({"a":{"b":[{"c":"d"}]},"e":""})",
      R"(["\u0000\b\t\n\u000b\f\r\u001f\"\\\/"])",
      "[\"\x7F é 😀 \xEF\xBF\xBF\"]",
      nested(JSON_NESTING_LIMIT),
  };
  for (const std::string& text : texts) {
    const auto value = parseJson(text);
    ASSERT_TRUE(value) << text;
    EXPECT_EQ(compact(*value), text);
  }
  EXPECT_EQ(compact(parseJson(" {\"k\" : [ 1 ,\t2 ]\r\n} ").value()), R"({"k":[1,2]})");
  EXPECT_EQ(compact(parseJson(R"({"k":1,"k":2})").value()), R"({"k":2})");
  EXPECT_EQ(compact(parseJson(R"(["\ud83d\ude00\u00e9"])").value()), "[\"😀é\"]");
}

TEST(JsonParser, RefusesWhatIsNotOneText) {
  const std::string texts[] = {"",
                               " ",
                               "{",
                               "[1e400]",
                               R"(["\ud800"])",
                               R"(["\udc00"])",
                               "{} {}",
                               "{}x",
                               "{}\0"s,
                               "{}\0{}"s,
                               "[\"\0\"]"s,
                               "\0"s,
                               "\xEF\xBB\xBF{}",
                               nested(JSON_NESTING_LIMIT + 1),
                               nested(2'000'000),
                               std::string(2'000'000, '[')};
  for (const std::string& text : texts) {
    EXPECT_FALSE(parseJson(text)) << text.substr(0, 40);
  }
}

TEST(JsonNumber, IsWholeWhenItsValueIs) {
  const struct {
    const char* text;
    std::optional<std::int64_t> whole;
  } rows[] = {
      {"3", 3},
      {"3.0", 3},
      {"1e2", 100},
      {"1200e-2", 12},
      {"-0", 0},
      {"0e999999999999999999999", 0},
      {"9223372036854775807", std::numeric_limits<std::int64_t>::max()},
      {"9223372036854775807.0", std::numeric_limits<std::int64_t>::max()},
      {"-9.223372036854775808e18", std::numeric_limits<std::int64_t>::min()},
      {"9007199254740993.0", 9007199254740993},
      {"2.5", std::nullopt},
      {"1e-1", std::nullopt},
      {"1e19", std::nullopt},
      {"9223372036854775808", std::nullopt},
      {"1e300", std::nullopt},
      {"1e-99999999999999999999", std::nullopt},
  };
  for (const auto& row : rows) {
    const auto value = parseJson("["s + row.text + "]");
    ASSERT_TRUE(value) << row.text;
    EXPECT_EQ(value->array()->front().wholeNumber(), row.whole) << row.text;
  }
}

TEST(JsonWriter, WritesPrettyWithSortedKeys) {
  const Json value =
      Json::Object{{"b", Json::Array{1, Json::Object{{"z", "/"}, {"a", nullptr}}, Json::Array()}},
                   {"a", Json::Object()},
                   {"c", true}};
  EXPECT_EQ(writeJson(value, JsonStyle::pretty), R"({
  "a" : {},
  "b" : [
    1,
    {
      "a" : null,
      "z" : "\/"
    },
    []
  ],
  "c" : true
})");
}

TEST(JsonWriter, WritesDoublesThatReadBackOrNothing) {
  for (const double number : {0.1, 1.0 / 3, 1e300, 5e-324, -0.0, double{0.70710677f}}) {
    EXPECT_EQ(std::strtod(compact(number).c_str(), nullptr), number);
  }
  for (const double number : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
    EXPECT_FALSE(writeJson(Json::Object{{"a", Json::Array{number}}}, JsonStyle::pretty));
  }
}

}  // namespace
}  // namespace norvast
