#include "embedding/word_piece_tokenizer.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "json/json_text.h"
#include "text/utf8.h"

namespace norvast {
namespace {

constexpr std::int64_t MOST_CHARACTERS_OF_A_WORD = 1000;

// The "type" of a declaration; "null" for one that declares nothing.
std::string typeOf(const std::optional<JsonText>& declaration) {
  const auto type = declaration ? declaration->member("type") : std::nullopt;
  return type ? type->string().value_or("null") : "null";
}

bool flag(const JsonText& object, std::string_view key, bool otherwise) {
  const auto value = object.member(key);
  return value ? value->boolean().value_or(otherwise) : otherwise;
}

// Accents are stripped where nothing is said and letters are made small.
BertNormalization normalizationOf(const std::optional<JsonText>& normalizer) {
  if (!normalizer || !normalizer->isObject()) return {false, false, false, false};
  BertNormalization normalization;
  normalization.cleanText = flag(*normalizer, "clean_text", true);
  normalization.handleChineseChars = flag(*normalizer, "handle_chinese_chars", true);
  normalization.lowercase = flag(*normalizer, "lowercase", true);
  normalization.stripAccents = flag(*normalizer, "strip_accents", normalization.lowercase);
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
  const auto root = validUtf8Length(json) == json.size() ? JsonText::parse(json) : std::nullopt;
  if (!root || !root->isObject()) return "Its tokenizer.json is no JSON object.";

  const auto normalizer = root->member("normalizer");
  const std::string normalizerType = typeOf(normalizer);
  if (normalizerType != "null" && normalizerType != "BertNormalizer") {
    return unlike("normalizer", normalizerType, "BertNormalizer");
  }
  const std::string cutterType = typeOf(root->member("pre_tokenizer"));
  if (cutterType != "BertPreTokenizer") {
    return unlike("pre-tokenizer", cutterType, "BertPreTokenizer");
  }
  const auto model = root->member("model");
  const std::string modelType = typeOf(model);
  if (modelType != "WordPiece") return unlike("model", modelType, "WordPiece");

  WordPieceTokenizer tokenizer;
  tokenizer.normalization_ = normalizationOf(normalizer);
  if (const auto prefix = model->member("continuing_subword_prefix")) {
    tokenizer.continuation_ = prefix->string().value_or(tokenizer.continuation_);
  }
  if (const auto most = model->member("max_input_chars_per_word")) {
    tokenizer.mostCharacters_ = static_cast<std::size_t>(
        std::clamp<std::int64_t>(most->wholeNumber().value_or(0), 1, MOST_CHARACTERS_OF_A_WORD));
  }
  const auto pieces = model->member("vocab");
  if (!pieces || !tokenizer.takePieces(*pieces)) {
    return "Its tokenizer.json must hold 1 to " + std::to_string(MOST_PIECES) +
           " pieces, numbered one by one from 0.";
  }
  return tokenizer;
}

bool WordPieceTokenizer::takePieces(const JsonText& pieces) {
  std::vector<bool> isTaken(MOST_PIECES);
  std::size_t last = 0;
  bool isSound = true;
  pieces.forEachMember([&](std::string piece, const JsonText& number) {
    const auto id = static_cast<std::size_t>(number.wholeNumber().value_or(-1));
    isSound = isSound && id < MOST_PIECES && !isTaken[id];
    if (!isSound) return;
    isTaken[id] = true;
    last = std::max(last, id);
    longestBytes_ = std::max(longestBytes_, piece.size());
    isSound = ids_.emplace(std::move(piece), static_cast<std::uint32_t>(id)).second;
  });
  return isSound && !ids_.empty() && last + 1 == ids_.size();
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
  if (const auto whole = ids_.find(word); whole != ids_.end()) {
    ids.push_back(whole->second);
    return true;
  }
  std::string candidate;
  for (std::size_t start = 0; start < word.size();) {
    const std::string_view prefix = start == 0 ? std::string_view() : continuation_;
    std::size_t length = std::min(word.size() - start, longestBytes_);
    candidate.assign(prefix).append(word, start, length);
    for (; length > 0; --length) {
      candidate.resize(prefix.size() + length);
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

}  // namespace norvast
