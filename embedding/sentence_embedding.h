// Sentence embedding: one vector for a text, near the vectors of texts of like content: that of its
// words and, where the user has installed a model, that model's behind it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "embedding/word_embedding.h"

namespace norvast {

struct ModelInUse;

// What stored vectors are compared with.
struct SentenceQuery {
  std::vector<float> vector;
  // How many numbers of a stored vector count, from the first on. What lies behind them is of a
  // model that is not here.
  std::size_t storedNumbers = SIZE_MAX;
};

class SentenceEmbedding {
 public:
  // Nothing when the stemmer has no English. Loads no model yet.
  static std::optional<SentenceEmbedding> english();

  // Takes the model that is installed now for `vector`, and reads it when its files are other than
  // at the last call. In one sentence for the user, why it cannot be used; nothing when it can, or
  // none is installed.
  std::optional<std::string> useInstalledModel();

  // What `vector` gives: EMBEDDING_SCHEME, with a model followed by + and its name
  // (installed_model.h).
  std::string scheme() const;

  // The vector to be stored for a text, of any bytes: the numbers of its words, then those of the
  // model in use times 0.6, zeros when it knows no piece of the text. In single precision, rounded
  // to nearest even. Nothing for a text without a letter or digit.
  std::optional<std::vector<float>> vector(std::string_view text) const;

  // The text's vector, exactly as it was sent, for stored ones of `indexScheme`. When that names a
  // model, it is loaded at the first call; where it is not installed, or another one is, the words
  // alone are compared, with the very outcome of an index without a model. Nothing for a text
  // without a letter or digit.
  std::optional<SentenceQuery> query(std::string_view text,
                                     const std::optional<std::string>& indexScheme) const;

  SentenceEmbedding(SentenceEmbedding&&) noexcept;
  SentenceEmbedding& operator=(SentenceEmbedding&&) noexcept;
  ~SentenceEmbedding();

 private:
  explicit SentenceEmbedding(WordEmbedding words);

  WordEmbedding words_;
  std::unique_ptr<ModelInUse> inUse_;
};

}  // namespace norvast
