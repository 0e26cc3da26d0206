#include "embedding/sentence_embedding.h"

#include <cmath>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>

#include "embedding/embedding_features.h"
#include "embedding/embedding_words.h"
#include "embedding/english_stemmer.h"

namespace norvast {

// The features of the words met last: texts repeat their words, and taking a word apart is most of
// the work.
class WordFeatureCache {
 public:
  explicit WordFeatureCache(EnglishStemmer stemmer) : stemmer_(std::move(stemmer)) {}

  // Adds the features of a word of that weight to `sum`.
  void add(const std::string& word, double weight, std::span<double> sum) {
    if (word.size() > LONGEST_BYTES) return addFeatures(takeApart(word), weight, sum);
    auto known = known_.find(word);
    if (known == known_.end()) {
      if (known_.size() >= MOST_WORDS) known_.clear();
      known = known_.emplace(word, takeApart(word)).first;
    }
    addFeatures(known->second, weight, sum);
  }

 private:
  // A word of common length takes about 500 bytes, so that all take about 2 MB; a run of letters
  // of any length is taken apart and forgotten.
  static constexpr std::size_t MOST_WORDS = 4096;
  static constexpr std::size_t LONGEST_BYTES = 32;

  WordFeatures takeApart(const std::string& word) const {
    return featuresOf(word, stemmer_.stem(word));
  }

  EnglishStemmer stemmer_;
  std::unordered_map<std::string, WordFeatures> known_;
};

std::optional<SentenceEmbedding> SentenceEmbedding::english() {
  auto stemmer = EnglishStemmer::open();
  if (!stemmer) return std::nullopt;
  return SentenceEmbedding(std::make_unique<WordFeatureCache>(std::move(*stemmer)));
}

SentenceEmbedding::SentenceEmbedding(std::unique_ptr<WordFeatureCache> features)
    : features_(std::move(features)) {}
SentenceEmbedding::SentenceEmbedding(SentenceEmbedding&&) noexcept = default;
SentenceEmbedding& SentenceEmbedding::operator=(SentenceEmbedding&&) noexcept = default;
SentenceEmbedding::~SentenceEmbedding() = default;

std::optional<std::vector<double>> SentenceEmbedding::vector(std::string_view text) const {
  std::vector<double> sum(EMBEDDING_DIMENSIONS);
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
