#include "platform/sentence_embedding.h"

#include <cmath>
#include <map>
#include <string>
#include <utility>

#include "platform/embedding_features.h"
#include "platform/embedding_words.h"
#include "platform/english_stemmer.h"

namespace norvast {

std::optional<SentenceEmbedding> SentenceEmbedding::english() {
  auto stemmer = EnglishStemmer::open();
  if (!stemmer) return std::nullopt;
  return SentenceEmbedding(std::make_unique<EnglishStemmer>(std::move(*stemmer)));
}

SentenceEmbedding::SentenceEmbedding(std::unique_ptr<EnglishStemmer> stemmer)
    : stemmer_(std::move(stemmer)) {}
SentenceEmbedding::SentenceEmbedding(SentenceEmbedding&&) noexcept = default;
SentenceEmbedding& SentenceEmbedding::operator=(SentenceEmbedding&&) noexcept = default;
SentenceEmbedding::~SentenceEmbedding() = default;

std::optional<std::vector<double>> SentenceEmbedding::vector(std::string_view text) const {
  std::vector<double> sum(EMBEDDING_DIMENSIONS);
  for (const auto& [word, weight] : weighedWords(text)) {
    addFeatures(word, stemmer_->stem(word), weight, sum);
  }
  double squares = 0;
  for (const double value : sum) squares += value * value;
  if (squares == 0) return std::nullopt;
  const double length = std::sqrt(squares);
  for (double& value : sum) value /= length;
  return sum;
}

}  // namespace norvast
