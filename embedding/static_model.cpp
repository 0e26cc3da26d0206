#include "embedding/static_model.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace norvast {
namespace {

constexpr std::size_t MOST_PIECES_OF_A_TEXT = 512;

const Tensor* find(const Tensors& tensors, std::string_view name) {
  const auto found = tensors.find(name);
  return found == tensors.end() ? nullptr : &found->second;
}

std::size_t numbersIn(const Tensor& tensor) {
  std::size_t count = 1;
  for (const std::size_t size : tensor.shape) count *= size;
  return count;
}

bool isFinite(const Tensor& tensor) {
  for (std::size_t at = 0; at < numbersIn(tensor); ++at) {
    if (!std::isfinite(numberAt(tensor, at))) return false;
  }
  return true;
}

std::string objectionToRows(const Tensor* rows) {
  if (rows == nullptr) return "Its model.safetensors holds no table of embeddings.";
  if (rows->type != NumberType::f32 && rows->type != NumberType::f16 &&
      rows->type != NumberType::i8) {
    return "The embeddings in its model.safetensors must be F32, F16 or I8.";
  }
  if (rows->shape.size() != 2 || rows->shape[1] == 0 ||
      rows->shape[1] > StaticModel::MOST_NUMBERS) {
    return "The embeddings in its model.safetensors must be rows of 1 to " +
           std::to_string(StaticModel::MOST_NUMBERS) + " numbers.";
  }
  if (!isFinite(*rows)) return "Some embedding in its model.safetensors is no finite number.";
  return {};
}

std::string objectionToWeights(const Tensor& weights, std::size_t pieces) {
  const bool isFraction = weights.type != NumberType::i32 && weights.type != NumberType::i8;
  if (isFraction && weights.shape == std::vector{pieces} && isFinite(weights)) return {};
  return "The weights in its model.safetensors must be finite, one for each piece.";
}

std::string objectionToMapping(const Tensor& mapping, std::size_t pieces, std::size_t rows) {
  bool isMapping = mapping.type == NumberType::i32 && mapping.shape == std::vector{pieces};
  for (std::size_t piece = 0; isMapping && piece < pieces; ++piece) {
    const double row = numberAt(mapping, piece);
    isMapping = row >= 0 && row < static_cast<double>(rows);
  }
  return isMapping ? "" : "The mapping in its model.safetensors must name a row for each piece.";
}

// Why these tensors are no model for so many pieces, or an empty text.
std::string objection(const Tensors& tensors, const Tensor* rows, std::size_t pieces) {
  if (std::string why = objectionToRows(rows); !why.empty()) return why;
  if (const Tensor* weights = find(tensors, "weights")) {
    if (std::string why = objectionToWeights(*weights, pieces); !why.empty()) return why;
  }
  if (const Tensor* mapping = find(tensors, "mapping")) {
    return objectionToMapping(*mapping, pieces, rows->shape[0]);
  }
  if (rows->shape[0] == pieces) return {};
  return "Its tokenizer.json has " + std::to_string(pieces) + " pieces and its model.safetensors " +
         std::to_string(rows->shape[0]) + " embeddings.";
}

}  // namespace

std::variant<StaticModel, std::string> StaticModel::fromFiles(std::string_view tokenizer,
                                                              std::vector<char> safetensors) {
  auto read = WordPieceTokenizer::fromJson(tokenizer);
  if (auto* why = std::get_if<std::string>(&read)) return std::move(*why);
  StaticModel model(std::move(std::get<WordPieceTokenizer>(read)), std::move(safetensors));
  auto tensors = readSafetensors(std::string_view(model.file_.data(), model.file_.size()));
  if (auto* why = std::get_if<std::string>(&tensors)) return std::move(*why);

  const Tensors& named = std::get<Tensors>(tensors);
  const Tensor* rows = find(named, "embeddings");
  if (rows == nullptr) rows = find(named, "embedding.weight");
  if (std::string why = objection(named, rows, model.tokenizer_.pieces()); !why.empty()) return why;
  model.rows_ = *rows;
  if (const Tensor* weights = find(named, "weights")) model.weights_ = *weights;
  if (const Tensor* mapping = find(named, "mapping")) model.mapping_ = *mapping;
  return model;
}

std::size_t StaticModel::rowOf(std::uint32_t piece) const {
  return mapping_ ? static_cast<std::size_t>(numberAt(*mapping_, piece)) : piece;
}

std::optional<std::vector<double>> StaticModel::vector(std::string_view text) const {
  std::vector<double> sum(size());
  for (const std::uint32_t piece : tokenizer_.tokenize(text, MOST_PIECES_OF_A_TEXT)) {
    const double weight = weights_ ? numberAt(*weights_, piece) : 1;
    addNumbers(rows_, rowOf(piece) * size(), weight, sum);
  }
  double squares = 0;
  for (const double value : sum) squares += value * value;
  if (squares == 0 || !std::isfinite(squares)) return std::nullopt;
  const double length = std::sqrt(squares);
  for (double& value : sum) value /= length;
  return sum;
}

}  // namespace norvast
