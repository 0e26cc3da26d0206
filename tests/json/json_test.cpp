// JSON in and out: what parses, what must not, how numbers come back, and the two styles.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "json/json_cursor.h"
#include "json/json_text.h"
#include "json/json_writer.h"

namespace norvast {
namespace {

using namespace std::string_literals;

std::string compact(const Json& value) {
  return writeJson(value, JsonStyle::compact).value_or("(not written)");
}

std::string rewritten(const std::string& text) { return JsonText::parse(text).value().compact(); }

std::string nested(std::size_t levels) {
  return std::string(levels, '[') + std::string(levels, ']');
}

TEST(JsonParser, AcceptsAndGivesBackTheSameValue) {
  const std::string texts[] = {
      "{}",
      "[]",
      "[null,true,false]",
      "[0,-0,-1,1.0,1e2,-0.0,1E+5,9223372036854775807,9223372036854775808,-9223372036854775808]",
      "[1e309,-1e-400,1E99999999999999999999," + std::string(400, '9') + "]",
      "[-9223372036854775809,18446744073709551615,18446744073709551616,12345678901234567890123]",
      R"({"a":{"b":[{"c":"d"}]},"e":""})",
      R"(["\u0000\b\t\n\u000b\f\r\u001f\"\\\/"])",
      "[\"\x7F é 😀 \xEF\xBF\xBF\"]",
      nested(JSON_NESTING_LIMIT),
  };
  for (const std::string& text : texts) {
    ASSERT_TRUE(JsonText::parse(text)) << text;
    EXPECT_EQ(rewritten(text), text);
  }
  EXPECT_EQ(rewritten(" {\"k\" : [ 1 ,\t2 ]\r\n} "), R"({"k":[1,2]})");
  EXPECT_EQ(rewritten(R"({"b":1,"a":{"d":[2],"c":{}},"\u0062":3})"),
            R"({"a":{"c":{},"d":[2]},"b":3})");
  EXPECT_EQ(rewritten(R"(["\ud83d\ude00\u00E9\b\f\n\r\t\/"])"), R"(["😀é\b\f\n\r\t\/"])");
  // Half of a pair, as a text cut inside an emoji leaves it.
  EXPECT_EQ(rewritten(R"(["a\ud83d","\ude00\ud83d","\ud83d\ud83d\ude00","\ud83dx\ude00"])"),
            "[\"a\uFFFD\",\"\uFFFD\uFFFD\",\"\uFFFD😀\",\"\uFFFDx\uFFFD\"]");
}

TEST(JsonParser, RefusesWhatIsNotOneText) {
  const std::string texts[] = {"",
                               " ",
                               "{",
                               "{} {}",
                               "{}x",
                               "\f{}",
                               "[01]",
                               "[1.]",
                               "[.5]",
                               "[+1]",
                               "[1e]",
                               "[1e+]",
                               "[-]",
                               "[1 2]",
                               "[,1]",
                               "[1,]",
                               "{\"a\":1,}",
                               "{\"a\"}",
                               "{1:2}",
                               "[1}",
                               "[tru]",
                               "[nulL]",
                               R"(["\x"])",
                               R"(["\u12g4"])",
                               R"(["\u12)",
                               R"(["\)",
                               "[\"\t\"]",
                               "{}\0"s,
                               "{}\0{}"s,
                               "[\"\0\"]"s,
                               "\0"s,
                               "\xEF\xBB\xBF{}",
                               nested(JSON_NESTING_LIMIT + 1),
                               nested(2'000'000),
                               std::string(2'000'000, '[')};
  for (const std::string& text : texts) {
    EXPECT_FALSE(JsonText::parse(text)) << text.substr(0, 40);
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
    const auto value = JsonText::parse(row.text);
    ASSERT_TRUE(value) << row.text;
    EXPECT_EQ(value->wholeNumber(), row.whole) << row.text;
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
