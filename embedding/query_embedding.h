// Query embedding: the client's text as a vector that stored vectors can be compared with.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "embedding/sentence_embedding.h"

namespace norvast {

// The text's vector, exactly as it was sent, in single precision (rounded to nearest even). Nothing
// when there is no model or it gives no vector.
std::optional<std::vector<float>> embedQuery(const std::optional<SentenceEmbedding>& sentence,
                                             std::string_view text);

}  // namespace norvast
