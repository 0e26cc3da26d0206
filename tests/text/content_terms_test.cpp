// The terms of a question with the folding below them, and the lines that are tags.
#include "text/content_terms.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "store/tags.h"

namespace norvast {
namespace {

TEST(ContentTerms, AreTheWordsWorthSearching) {
  using Terms = std::vector<std::string>;
  const struct {
    std::string text;
    Terms terms;
  } rows[] = {
      {"What does the Q3 budget say about Zürich?", {"budget", "say", "zurich"}},
      {"Budget, budget and BUDGET", {"budget", "budget", "budget"}},
      {"Summarise my files please", {}},
      {"naïve café", {"naive", "cafe"}},
      {"e-mail x_ray who's", {"mail", "ray"}},
      {"2024 report½ ⅷⅷⅷ", {"2024", "report½", "ⅷⅷⅷ"}},
      {"", {}},
      {"ΆΣΣΟΣ Йога Straße łódź Øre İzmir", {"ασσος", "иога", "straße", "łodz", "øre", "izmir"}},
      {"हिन्दी が東京 한국어", {"が東京", "한국어"}},
      {"e\u0301te\u0301 \u0301abc", {"ete", "abc"}},
      {"👍abc👍de", {"abc"}},
  };
  for (const auto& row : rows) EXPECT_EQ(contentTerms(row.text), row.terms) << row.text;
  EXPECT_EQ(contentTerms(std::string(1'000'000, 'a')).size(), 1U);
  EXPECT_EQ(contentTerms(std::string("abc\0def", 7)), Terms({"abc", "def"}));
}

TEST(TagLines, AreSplitAtLineFeedsAlone) {
  using Lines = std::vector<std::string_view>;
  EXPECT_EQ(tagLines(""), Lines());
  EXPECT_EQ(tagLines("\n\n"), Lines());
  EXPECT_EQ(tagLines("\n a \n\nb"), Lines({" a ", "b"}));
  EXPECT_EQ(tagLines("a\r\nb\nc\r"), Lines({"a\r\nb", "c\r"}));
  EXPECT_EQ(tagLines("\r\n"), Lines({"\r\n"}));
  EXPECT_EQ(tagLines("a\n\r\nb"), Lines({"a", "\r\nb"}));
}

}  // namespace
}  // namespace norvast
