// Static model: a table with a row of numbers for each piece of a word; a text is the mean of its
// rows. Source of the format: the public description of model2vec.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "embedding/safetensors.h"
#include "embedding/word_piece_tokenizer.h"

namespace norvast {

class StaticModel {
 public:
  static constexpr std::size_t MOST_NUMBERS = 1024;  // a row

  // From the bytes of a tokenizer.json and a model.safetensors, which holds
  //   - `embeddings` or `embedding.weight`, the rows, as F32, F16 or I8;
  //   - or not `weights`, by which the row of each piece is multiplied, as F64, F32 or F16;
  //   - or not `mapping`, which row is that of each piece, as I32; else there is one for each.
  // Or one sentence that says why there is no model in them: all numbers must be finite.
  static std::variant<StaticModel, std::string> fromFiles(std::string_view tokenizer,
                                                          std::vector<char> safetensors);

  // How many numbers a vector has.
  std::size_t size() const { return rows_.shape[1]; }

  // The mean of the rows of the text's first 512 known pieces, scaled to length 1; nothing when
  // there is none, or only zeros. Sums are in double precision, in the order of the text.
  std::optional<std::vector<double>> vector(std::string_view text) const;

 private:
  StaticModel(WordPieceTokenizer tokenizer, std::vector<char> file)
      : tokenizer_(std::move(tokenizer)), file_(std::move(file)) {}

  std::size_t rowOf(std::uint32_t piece) const;

  WordPieceTokenizer tokenizer_;
  std::vector<char> file_;  // what the tensors point into, also after a move
  Tensor rows_;
  std::optional<Tensor> weights_;
  std::optional<Tensor> mapping_;
};

}  // namespace norvast
