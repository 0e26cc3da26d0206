// Query embedding: the client's text as a vector that stored vectors can be compared with.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "embedding/sentence_embedding.h"

namespace norvast {

// The text's vector, exactly as it was sent, for an index whose vectors are of that scheme. Nothing
// when there is no embedding or it gives no vector.
std::optional<std::vector<float>> embedQuery(
    const std::optional<SentenceEmbedding>& sentence, std::string_view text,
    const std::optional<std::string>& indexScheme = std::nullopt);

}  // namespace norvast
