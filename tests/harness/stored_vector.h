// Stored vectors for tests: blobs as SQL literals.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <span>
#include <string>
#include <vector>

#include "embedding/sentence_embedding.h"

namespace norvast {

// X'...' of the little-endian binary32 values.
inline std::string sqlBlob(std::span<const float> values) {
  std::string sql = "X'";
  for (const float value : values) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    for (int byte = 0; byte < 4; ++byte, bits >>= 8) {
      char digits[3];
      (void)std::snprintf(digits, sizeof digits, "%02X", bits & 0xFFU);
      sql += digits;
    }
  }
  return sql + "'";
}

// The vector of a text, as the indexer stores it.
inline std::vector<float> textVector(const std::string& text) {
  return SentenceEmbedding::english()->vector(text).value();
}

inline std::string sqlTextBlob(const std::string& text) { return sqlBlob(textVector(text)); }

}  // namespace norvast
