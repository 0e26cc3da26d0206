// What the indexer makes of a text: its summary, entities and passages.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "analysis/entities.h"
#include "analysis/passages.h"
#include "analysis/summary.h"
#include "text/unicode.h"

namespace norvast {
namespace {

using Texts = std::vector<std::string>;

TEST(Summary, IsTheSentencesWithTheTextsOwnWords) {
  const std::string text =
      "# Notes\n\nThe weather was fine on that day. The pump of the garden association is broken,\n"
      "and the garden needs a new pump.\n\n- A new garden pump costs 400 euros!\n\nIrrelevant "
      "aside "
      "without any end";
  const std::string summary = summarize(text);
  EXPECT_EQ(
      summary,
      "The weather was fine on that day. The pump of the garden association is broken, and the "
      "garden needs a new pump. A new garden pump costs 400 euros!");

  std::string longer;
  for (int number = 0; number < 500; ++number) {
    longer += "Sentence number " + std::to_string(number) + " speaks of harvest and compost. ";
  }
  EXPECT_LE(countClusters(summarize(longer)), LONGEST_SUMMARY_CLUSTERS);
  EXPECT_TRUE(summarize(longer).ends_with("compost."));
}

TEST(Summary, OfATextWithoutSentencesIsItsFirstLines) {
  EXPECT_EQ(summarize("time,bed\n\n1,A\n"), "time,bed 1,A");
  EXPECT_EQ(summarize(" \n\t\n"), "");
  EXPECT_EQ(summarize(""), "");
  std::string clusters;
  for (int number = 0; number < 1000; ++number) clusters += "e\u0301";
  EXPECT_EQ(countClusters(summarize(clusters)), LONGEST_SUMMARY_CLUSTERS);
}

TEST(Entities, AreFoundByPlainRules) {
  const struct {
    const char* text;
    Texts entities;
  } rows[] = {
      {"We met Maria Keller in Zürich. Later Maria Keller left.", {"Maria Keller", "Zürich"}},
      {"Ask Dr. Jean-Luc O'Brien, of Holzmann & Sons.", {"Jean-Luc O'Brien", "Holzmann & Sons"}},
      {"Please ask Tom first. Ask Tom Okafor!", {"Tom Okafor"}},
      {"The Garden is open. This Monday we sow.", {}},
      {"Due 14 May 2026, 2026-05-14, 14.05.2026, May 3rd, 2027 or 5/14/2026.",
       {"14 May 2026", "2026-05-14", "14.05.2026", "May 3rd 2027", "5/14/2026"}},
      {"Mail <a.b@example.org> or see https://example.org/x, call +41 44 555 01 23.",
       {"a.b@example.org", "https://example.org/x", "+41 44 555 01 23"}},
      {"Gartenstrasse 8 and 12 Baker Street", {"Gartenstrasse 8", "12 Baker Street"}},
      {"std::vector<Foo Bar> x = New Thing();\nid,First Name,Last Name,a,b,c,d", {}},
      {"1.2.3 and 99/99 and 3.14.15", {}},
      {"café René Dupont, cafe\u0301 Rene\u0301 Dupont", {"René Dupont"}},
      {"", {}},
  };
  for (const auto& row : rows) EXPECT_EQ(findEntities(row.text), row.entities) << row.text;

  std::string many;
  for (char letter = 'a'; letter <= 'z'; ++letter)
    many += "mail " + std::string(2, letter) + "@x.org, ";
  EXPECT_EQ(findEntities(many).size(), MOST_ENTITIES);
}

TEST(Passages, CoverTheTextAndEndWhereTheyCan) {
  const std::string sentence = "The quick brown fox jumps over the lazy dog. ";
  std::string paragraphs;
  for (int paragraph = 0; paragraph < 6; ++paragraph) {
    for (int count = 0; count < 10; ++count) paragraphs += sentence;
    paragraphs += "\n\n";
  }
  for (const std::string& passage : cutPassages(paragraphs)) EXPECT_EQ(passage.size(), 449U);

  std::string oneParagraph;
  for (int count = 0; count < 100; ++count) oneParagraph += sentence;
  for (const std::string& passage : cutPassages(oneParagraph))
    EXPECT_TRUE(passage.ends_with("dog."));

  EXPECT_EQ(cutPassages(" \n "), Texts());
  EXPECT_EQ(cutPassages(" short \n"), Texts{"short"});
}

TEST(Passages, NeverCutACharacterAndLoseNothing) {
  std::string families;
  for (int count = 0; count < 1500; ++count) families += "👨‍👩‍👧";
  std::string accents;
  for (int count = 0; count < 2000; ++count) accents += count % 7 == 0 ? " \u0301" : "e\u0301";
  for (const std::string& text :
       {families, accents, std::string(1'000'000, 'x'), std::string(5000, '\xC3'),
        "\u0301" + std::string(100'000, '\n') + "y"}) {
    std::string together;
    for (const std::string& passage : cutPassages(text)) {
      EXPECT_LE(countClusters(passage), 600U);
      EXPECT_FALSE(passage.empty());
      together += passage;
    }
    const auto bare = [](std::string bytes) {
      std::erase_if(bytes, [](char byte) { return byte == ' ' || byte == '\n'; });
      return bytes;
    };
    EXPECT_EQ(bare(together), bare(text));
  }
  for (const std::string& passage : cutPassages(families))
    EXPECT_EQ(countClusters(passage) % 300, 0U);
}

}  // namespace
}  // namespace norvast
