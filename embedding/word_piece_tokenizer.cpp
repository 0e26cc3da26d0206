#include "embedding/word_piece_tokenizer.h"

#include <algorithm>
#include <optional>

#include "json/json.h"
#include "json/json_parser.h"
#include "text/utf8.h"

namespace norvast {
namespace {

constexpr std::int64_t MOST_CHARACTERS_OF_A_WORD = 1000;

// The "type" of a declaration; "null" for one that declares nothing.
std::string typeOf(const Json* declaration) {
  const Json::Object* object = declaration == nullptr ? nullptr : declaration->object();
  const Json* type = object == nullptr ? nullptr : member(*object, "type");
  return type != nullptr && type->string() != nullptr ? *type->string() : "null";
}

bool flag(const Json::Object& object, std::string_view key, bool otherwise) {
  const Json* value = member(object, key);
  return value != nullptr && value->boolean() != nullptr ? *value->boolean() : otherwise;
}

// Accents are stripped where nothing is said and letters are made small.
BertNormalization normalizationOf(const Json* normalizer) {
  const Json::Object* object = normalizer == nullptr ? nullptr : normalizer->object();
  if (object == nullptr) return {false, false, false, false};
  BertNormalization normalization;
  normalization.cleanText = flag(*object, "clean_text", true);
  normalization.handleChineseChars = flag(*object, "handle_chinese_chars", true);
  normalization.lowercase = flag(*object, "lowercase", true);
  normalization.stripAccents = flag(*object, "strip_accents", normalization.lowercase);
  return normalization;
}

std::string unlike(const char* what, const std::string& type, const char* expected) {
  return std::string("Its tokenizer.json declares the ") + what + " " + type + ", not " + expected +
         ".";
}

std::size_t characters(std::string_view utf8) {
  return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
  }));
}

}  // namespace

std::variant<WordPieceTokenizer, std::string> WordPieceTokenizer::fromJson(std::string_view json) {
  const auto root = validUtf8Length(json) == json.size() ? parseJson(json) : std::nullopt;
  const Json::Object* object = root ? root->object() : nullptr;
  if (object == nullptr) return "Its tokenizer.json is no JSON object.";

  const Json* normalizer = member(*object, "normalizer");
  const std::string normalizerType = typeOf(normalizer);
  if (normalizerType != "null" && normalizerType != "BertNormalizer") {
    return unlike("normalizer", normalizerType, "BertNormalizer");
  }
  const std::string cutterType = typeOf(member(*object, "pre_tokenizer"));
  if (cutterType != "BertPreTokenizer") {
    return unlike("pre-tokenizer", cutterType, "BertPreTokenizer");
  }
  const Json* model = member(*object, "model");
  const std::string modelType = typeOf(model);
  if (modelType != "WordPiece") return unlike("model", modelType, "WordPiece");

  const Json* vocabulary = member(*model->object(), "vocab");
  const Json::Object* pieces = vocabulary == nullptr ? nullptr : vocabulary->object();
  if (pieces == nullptr || pieces->empty() || pieces->size() > MOST_PIECES) {
    return "Its tokenizer.json must hold 1 to " + std::to_string(MOST_PIECES) + " pieces.";
  }

  WordPieceTokenizer tokenizer;
  tokenizer.normalization_ = normalizationOf(normalizer);
  if (const Json* prefix = member(*model->object(), "continuing_subword_prefix");
      prefix != nullptr && prefix->string() != nullptr) {
    tokenizer.continuation_ = *prefix->string();
  }
  if (const Json* most = member(*model->object(), "max_input_chars_per_word"); most != nullptr) {
    tokenizer.mostCharacters_ = static_cast<std::size_t>(
        std::clamp<std::int64_t>(most->wholeNumber().value_or(0), 1, MOST_CHARACTERS_OF_A_WORD));
  }
  std::vector<bool> isTaken(pieces->size());
  tokenizer.ids_.reserve(pieces->size());
  for (const auto& [piece, number] : *pieces) {
    const std::int64_t id = number.wholeNumber().value_or(-1);
    if (id < 0 || id >= static_cast<std::int64_t>(isTaken.size()) ||
        isTaken[static_cast<std::size_t>(id)]) {
      return "The pieces in its tokenizer.json are not numbered one by one from 0.";
    }
    isTaken[static_cast<std::size_t>(id)] = true;
    tokenizer.longestBytes_ = std::max(tokenizer.longestBytes_, piece.size());
    tokenizer.ids_.emplace(piece, static_cast<std::uint32_t>(id));
  }
  return tokenizer;
}

std::vector<std::uint32_t> WordPieceTokenizer::tokenize(std::string_view text,
                                                        std::size_t limit) const {
  std::vector<std::uint32_t> ids;
  for (const std::string& word : bertWords(text, normalization_)) {
    if (ids.size() >= limit) break;
    const std::size_t before = ids.size();
    if (!appendPieces(word, ids)) ids.resize(before);
  }
  ids.resize(std::min(ids.size(), limit));
  return ids;
}

// False when a part of the word is no piece; `ids` may then have become longer.
bool WordPieceTokenizer::appendPieces(const std::string& word,
                                      std::vector<std::uint32_t>& ids) const {
  if (characters(word) > mostCharacters_) return false;
  std::string candidate;
  for (std::size_t start = 0; start < word.size();) {
    const std::string_view prefix = start == 0 ? std::string_view() : continuation_;
    std::size_t length = std::min(word.size() - start, longestBytes_);
    for (; length > 0; --length) {
      candidate.assign(prefix).append(word, start, length);
      if (const auto found = ids_.find(candidate); found != ids_.end()) {
        ids.push_back(found->second);
        break;
      }
    }
    if (length == 0) return false;
    start += length;
  }
  return true;
}

double WordPieceTokenizer::wholeShare(const std::vector<std::string>& words) const {
  if (words.empty()) return 0;
  const auto whole = std::count_if(words.begin(), words.end(),
                                   [this](const std::string& word) { return ids_.contains(word); });
  return static_cast<double>(whole) / static_cast<double>(words.size());
}

}  // namespace norvast
