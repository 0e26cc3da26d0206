// UTF-8 repair and user-perceived characters.
#include <gtest/gtest.h>

#include <string>

#include "text/unicode.h"
#include "text/utf8.h"

namespace norvast {
namespace {

TEST(Utf8, RepairsEachMaximalInvalidPart) {
  const struct {
    std::string bytes;
    std::string repaired;
  } rows[] = {
      {"", ""},
      {"plain ASCII of some length", "plain ASCII of some length"},
      {"é😀\xED\x9F\xBF", "é😀\xED\x9F\xBF"},
      {"long enough to skip \xFF over", "long enough to skip \uFFFD over"},
      {"\xC3", "\uFFFD"},
      {"a\xC3(", "a\uFFFD("},
      {"\xF0\x9F\x98x", "\uFFFDx"},
      {"\xC0\x80", "\uFFFD\uFFFD"},
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
      {std::string("a\0\xFF", 3), std::string("a\0\uFFFD", 5)},
  };
  for (const auto& row : rows) EXPECT_EQ(repairUtf8(row.bytes), row.repaired);
}

TEST(Utf8, TellsACutCharacterFromAnInvalidOne) {
  for (const char* cut : {"\xC3", "\xE2", "\xE2\x82", "\xF0\x9F\x98", "\xED\x9F"}) {
    EXPECT_TRUE(isCutCharacter(cut)) << cut;
  }
  for (const char* invalid : {"", "a", "\x80", "\xC0", "\xFF", "\xED\xA0", "\xE2(", "\xC3\xC3"}) {
    EXPECT_FALSE(isCutCharacter(invalid)) << invalid;
  }
}

TEST(Clusters, AreCountedAndNeverSplit) {
  const struct {
    std::string text;
    std::size_t clusters;
    std::size_t limit;
    std::string prefix;
  } rows[] = {
      {"", 0, 5, ""},
      {"abc", 3, 2, "ab"},
      {"a\r\nb", 3, 2, "a\r\n"},
      {"e\u0301e", 2, 1, "e\u0301"},
      {"👨‍👩‍👧x", 2, 1, "👨‍👩‍👧"},
      {"🇩🇪🇫🇷", 2, 1, "🇩🇪"},
      {"한국", 2, 9, "한국"},
      {"\u0301", 1, 0, ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(countClusters(row.text), row.clusters) << row.text;
    EXPECT_EQ(firstClusters(row.text, row.limit), row.prefix) << row.text;
  }
}

TEST(CanonicalForm, IsOneForEquivalentTexts) {
  const struct {
    std::string text;
    std::string form;
  } rows[] = {
      {"", ""},
      {"q\u0307\u0323", "q\u0323\u0307"},
      {"e\u0301\u0323", "ẹ\u0301"},
      {"\u1112\u1161\u11ab", "한"},
      {"\u212B", "Å"},
      {"\u0F73\u0301", "\u0F71\u0F72\u0301"},
      {"\u0301\u0323", "\u0323\u0301"},
  };
  for (const auto& row : rows) EXPECT_EQ(canonicalForm(row.text), row.form) << row.text;
}

// In quadratic time this would take minutes, and the test be ended.
TEST(CanonicalForm, TakesAMillionMarksBehindOneLetter) {
  std::string text = "a";
  std::string form = "ạ";
  for (int count = 0; count < 500'000; ++count) text += "\u0301\u0323";
  for (int count = 1; count < 500'000; ++count) form += "\u0323";
  for (int count = 0; count < 500'000; ++count) form += "\u0301";
  EXPECT_TRUE(canonicalForm(text) == form);
  EXPECT_EQ(foldDiacritics(text), "a");
}

}  // namespace
}  // namespace norvast
