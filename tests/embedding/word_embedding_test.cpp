// The embedding scheme: its words, its length, its bits, and what must come out nearer than what.
#include "embedding/word_embedding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "embedding/embedding_words.h"

namespace norvast {
namespace {

using namespace std::string_literals;

std::vector<double> vectorOf(const std::string& text) {
  return WordEmbedding::open()->vector(text).value();
}

double similarity(const std::string& left, const std::string& right) {
  const std::vector<double> a = vectorOf(left);
  const std::vector<double> b = vectorOf(right);
  double sum = 0;
  for (std::size_t at = 0; at < a.size(); ++at) sum += a[at] * b[at];
  return sum;
}

TEST(EmbeddingWords, AreCountedAndWeighed) {
  const struct {
    std::string text;
    std::map<std::string, double> counts;  // the weight squared
  } rows[] = {
      {"Budget budgets, BUDGET!", {{"budget", 2}, {"budgets", 1}}},
      {"Tom's toms’s O'Brien", {{"brien", 1}, {"o", 1}, {"tom", 1}, {"toms", 1}}},
      {"parseHTTPRequest2",
       {{"parsehttprequest2", 1}, {"parse", 0.7}, {"http", 0.7}, {"request", 0.7}}},
      {"snake_case Q3", {{"snake", 1}, {"case", 1}, {"q3", 1}}},
      {"Ünïcödé ﬁne Ⅷ", {{"unicode", 1}, {"fine", 1}, {"viii", 1}}},
      {"東京x", {{"東", 0.5}, {"京", 0.5}, {"東京", 1}, {"x", 1}}},
      {"塔", {{"塔", 1}}},
      {"the", {{"the", 0.01}}},
      {"über für", {{"uber", 0.01}, {"fur", 0.01}}},  // German, so that "für" is no fur
      {"la fur", {{"la", 0.01}, {"fur", 1}}},
      {"über the fur", {{"uber", 0.01}, {"the", 0.01}, {"fur", 1}}},
      {"\xFF\xFE a\0b"s, {{"a", 0.01}, {"b", 1}}},
      {"—?! \u0301", {}},
  };
  for (const auto& row : rows) {
    const auto weighed = weighedWords(row.text);
    EXPECT_TRUE(std::is_sorted(weighed.begin(), weighed.end()));
    const std::map<std::string, double> words(weighed.begin(), weighed.end());
    EXPECT_EQ(words.size(), row.counts.size()) << row.text;
    for (const auto& [word, count] : row.counts) {
      ASSERT_TRUE(words.contains(word)) << word << " in " << row.text;
      EXPECT_NEAR(words.at(word) * words.at(word), count, 1e-12) << word;
    }
  }
}

// The scheme is a promise to vectors that are stored already: when this fails, its name must
// change.
TEST(WordEmbedding, GivesTheSameBitsEverywhere) {
  std::uint64_t digest = 0;
  for (const double value :
       vectorOf("The quarterly budget report: parseHTTPRequest2, Zürich's 東京タワー 2026")) {
    digest = std::rotl(digest, 7) * 31 + std::bit_cast<std::uint64_t>(value);
  }
  EXPECT_STREQ(EMBEDDING_SCHEME, "norvast-words-2");
  EXPECT_EQ(digest, 4285129839450084342U);
}

TEST(WordEmbedding, HasLength1OrIsNothing) {
  for (const std::string& text : {"x"s, "the"s, std::string(1'000'000, 'z'), "a b c d"s}) {
    const std::vector<double> vector = vectorOf(text);
    ASSERT_EQ(vector.size(), WORD_EMBEDDING_NUMBERS);
    double squares = 0;
    for (const double value : vector) squares += value * value;
    EXPECT_NEAR(squares, 1, 1e-12);
  }
  for (const char* text : {"", " \n", "?!", "\xFF"}) {
    EXPECT_FALSE(WordEmbedding::open()->vector(text)) << text;
  }
}

// In quadratic time this would take minutes, and the test be ended.
TEST(WordEmbedding, TakesAMillionMarksBehindOneLetter) {
  std::string text = "budget";
  for (int count = 0; count < 500'000; ++count) text += "\u0301\u0323";
  EXPECT_EQ(vectorOf(text), vectorOf("budget"));
}

TEST(WordEmbedding, PutsLikeTextsNearer) {
  const struct {
    const char* query;
    const char* near;
    const char* far;
  } rows[] = {
      {"quarterly budgets", "the budget for the quarter", "the cat sleeps on the sofa"},
      {"bugdet", "budget", "garden"},
      {"http request", "parseHTTPRequest(input)", "parseJsonText(input)"},
      {"zurich cafe", "Cafés in Zürich", "Museen in Bern"},
      {"what is the capital of France", "Paris is the capital of France",
       "what is the matter with it"},
      {"東京", "東京の塔", "京都の寺"},
      {"make a pump", "a pump", "make use of it"},
      {"wann ist die Pumpe dran", "Pumpe und Motor", "die Zeit ist um"},
  };
  for (const auto& row : rows) {
    EXPECT_GT(similarity(row.query, row.near), similarity(row.query, row.far) + 0.05) << row.query;
  }
}

}  // namespace
}  // namespace norvast
