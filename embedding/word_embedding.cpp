#include "embedding/word_embedding.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>

#include "embedding/embedding_features.h"
#include "embedding/embedding_words.h"
#include "language/english_stemmer.h"
#include "language/stem_weights.h"

namespace norvast {

namespace {

// What a word adds to any text, but for its count there.
struct TakenApartWord {
  WordFeatures features;
  double weight = 1;
};

constexpr double NUMBER_WEIGHT = 1.3;

bool isNumber(std::string_view word) {
  return std::all_of(word.begin(), word.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

// The features of the words met last: texts repeat their words, and taking a word apart is most of
// the work.
class WordFeatureCache {
 public:
  explicit WordFeatureCache(EnglishStemmer stemmer) : stemmer_(std::move(stemmer)) {}

  // Adds the features of a word of that weight in its text to `sum`.
  void add(const std::string& word, double weight, std::span<double> sum) {
    if (word.size() > LONGEST_BYTES) return addTakenApart(takeApart(word), weight, sum);
    auto known = known_.find(word);
    if (known == known_.end()) {
      if (known_.size() >= MOST_WORDS) known_.clear();
      known = known_.emplace(word, takeApart(word)).first;
    }
    addTakenApart(known->second, weight, sum);
  }

 private:
  // A word of common length takes about 500 bytes, so that all take about 16 MB where an indexer
  // meets so many; a run of letters of any length is taken apart and forgotten.
  static constexpr std::size_t MOST_WORDS = 32768;
  static constexpr std::size_t LONGEST_BYTES = 32;

  TakenApartWord takeApart(const std::string& word) const {
    const std::string stem = stemmer_.stem(word);
    return {featuresOf(word, stem), isNumber(word) ? NUMBER_WEIGHT : stemWeight(stem)};
  }

  static void addTakenApart(const TakenApartWord& word, double weight, std::span<double> sum) {
    addFeatures(word.features, weight * word.weight, sum);
  }

  EnglishStemmer stemmer_;
  std::unordered_map<std::string, TakenApartWord> known_;
};

std::optional<WordEmbedding> WordEmbedding::open() {
  auto stemmer = EnglishStemmer::open();
  if (!stemmer) return std::nullopt;
  return WordEmbedding(std::make_unique<WordFeatureCache>(std::move(*stemmer)));
}

WordEmbedding::WordEmbedding(std::unique_ptr<WordFeatureCache> features)
    : features_(std::move(features)) {}
WordEmbedding::WordEmbedding(WordEmbedding&&) noexcept = default;
WordEmbedding& WordEmbedding::operator=(WordEmbedding&&) noexcept = default;
WordEmbedding::~WordEmbedding() = default;

std::optional<std::vector<double>> WordEmbedding::vector(std::string_view text) const {
  std::vector<double> sum(WORD_EMBEDDING_NUMBERS);
  for (const auto& [word, weight] : weighedWords(text)) {
    features_->add(word, weight, sum);
  }
  double squares = 0;
  for (const double value : sum) squares += value * value;
  if (squares == 0) return std::nullopt;
  const double length = std::sqrt(squares);
  for (double& value : sum) value /= length;
  return sum;
}

}  // namespace norvast
