// Word embedding: the built-in vectors, which need no model.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace norvast {

class WordFeatureCache;

inline constexpr std::size_t WORD_EMBEDDING_NUMBERS = 512;

// Names the scheme that is written down below. Vectors of two schemes must never be compared:
// whatever changes a single number of a vector changes this name.
inline constexpr const char* EMBEDDING_SCHEME = "norvast-words-2";

// A text is the sum of hashed features of its words, so that texts meet through common words,
// stems, and pieces of words (names, numbers, identifiers, typing errors). It is blind to
// paraphrase without a common word.
//
// The same text gives the same bits on every machine and build that has the same tables of Unicode
// and of English stems:
//   1. The text is decomposed (NFKD), its combining marks are dropped, the rest is recomposed
//   (NFC).
//   2. Words are cut from it and counted, function words weigh little (embedding_words.h).
//   3. In ascending byte order of the words, each adds its features (embedding_features.h); its
//   weight is multiplied by that of its stem (stem_weights.h), or by 1.3 for a run of digits.
//   4. The sum is scaled to length 1.
class WordEmbedding {
 public:
  // Nothing when the stemmer has no English.
  static std::optional<WordEmbedding> open();

  // WORD_EMBEDDING_NUMBERS numbers of length 1, in time linear in the text, which may be any bytes.
  // Nothing for a text without a letter or digit. One call at a time: it keeps words for the next.
  std::optional<std::vector<double>> vector(std::string_view text) const;

  WordEmbedding(WordEmbedding&&) noexcept;
  WordEmbedding& operator=(WordEmbedding&&) noexcept;
  ~WordEmbedding();

 private:
  explicit WordEmbedding(std::unique_ptr<WordFeatureCache> features);

  std::unique_ptr<WordFeatureCache> features_;
};

}  // namespace norvast
