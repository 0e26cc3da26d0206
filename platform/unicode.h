// Unicode text: user-perceived characters and canonical equivalence.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace norvast {

// Number of user-perceived characters (extended grapheme clusters, UAX #29) in a UTF-8 text.
std::size_t countClusters(std::string_view text);

// The first `limit` clusters of a UTF-8 text: a prefix of it, whole when it has no more. No
// cluster is split.
std::string_view firstClusters(std::string_view text, std::size_t limit);

// Normalization Form C (UAX #15) of a UTF-8 text: equal bytes for canonically equivalent texts.
std::string canonicalForm(std::string_view text);

}  // namespace norvast
