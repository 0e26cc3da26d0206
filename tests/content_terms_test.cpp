// The terms of a question, and the folding below them.
#include "text/content_terms.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

}  // namespace
}  // namespace norvast
