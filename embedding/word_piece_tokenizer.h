// WordPiece tokenizer: a text as the numbers of the pieces that a model knows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

#include "json/json_text.h"
#include "text/bert_words.h"

namespace norvast {

class WordPieceTokenizer {
 public:
  static constexpr std::size_t MOST_PIECES = 200'000;

  // From the text of a tokenizer.json as Hugging Face's tokenizers write it: a BertNormalizer or
  // none, a BertPreTokenizer, and a WordPiece model whose pieces are numbered 0, 1, 2 and so on.
  // Else one sentence that says what is different.
  static std::variant<WordPieceTokenizer, std::string> fromJson(std::string_view json);

  std::size_t pieces() const { return ids_.size(); }

  // The numbers of the first `limit` known pieces of the text: of each word (text/bert_words.h) the
  // longest piece that it begins with, then the longest of the rest, and so on. A word that cannot
  // be made of pieces so, or of more characters than the model takes, has none. The text may be any
  // bytes.
  std::vector<std::uint32_t> tokenize(std::string_view text, std::size_t limit) const;

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };

  WordPieceTokenizer() = default;
  bool takePieces(const JsonText& pieces);
  bool appendPieces(const std::string& word, std::vector<std::uint32_t>& ids) const;

  BertNormalization normalization_;
  std::string continuation_ = "##";  // stands before pieces that do not begin a word
  std::size_t mostCharacters_ = 100;
  std::size_t longestBytes_ = 0;  // of a piece
  std::unordered_map<std::string, std::uint32_t, Hash, std::equal_to<>> ids_;
};

}  // namespace norvast
