// Row group: the similarity of many rows to one query at a time, bit for bit that of `cosine`.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace norvast {

// How many rows are summed side by side: two registers of four lanes for each of the two sums, so
// that the additions of one go on while those of the others wait for their predecessors. The rows
// of a larger group would not stay in the processor's nearest memory.
inline constexpr std::size_t ROWS_A_GROUP = 8;

// One query vector, its norm taken once.
class QueryVector {
 public:
  explicit QueryVector(std::vector<float> values);

  std::size_t size() const { return values_.size(); }

  // cosine(query, row) for one row of any length.
  float similarityTo(std::span<const float> row) const;

  // The same for ROWS_A_GROUP rows, each of size() floats, size() above 0. A SIMD lane belongs to
  // one row and adds its terms in element order, so no sum is reordered.
  std::array<float, ROWS_A_GROUP> similaritiesTo(
      const std::array<const float*, ROWS_A_GROUP>& rows) const;

 private:
  std::vector<float> values_;
  float squaredNorm_;
};

}  // namespace norvast
