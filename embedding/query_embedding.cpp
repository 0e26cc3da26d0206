#include "embedding/query_embedding.h"

namespace norvast {

std::optional<std::vector<float>> embedQuery(const std::optional<SentenceEmbedding>& sentence,
                                             std::string_view text) {
  if (!sentence) return std::nullopt;
  const auto vector = sentence->vector(text);
  if (!vector) return std::nullopt;
  std::vector<float> query;
  query.reserve(vector->size());
  for (const double value : *vector) query.push_back(static_cast<float>(value));
  return query;
}

}  // namespace norvast
