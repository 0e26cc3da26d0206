#include "embedding/query_embedding.h"

namespace norvast {

std::optional<std::vector<float>> embedQuery(const std::optional<SentenceEmbedding>& sentence,
                                             std::string_view text,
                                             const std::optional<std::string>& indexScheme) {
  return sentence ? sentence->queryVector(text, indexScheme) : std::nullopt;
}

}  // namespace norvast
