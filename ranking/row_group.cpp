#include "ranking/row_group.h"

#include <cstring>
#include <utility>

#include "ranking/cosine.h"

namespace norvast {
namespace {

// One lane a row. Sixteen bytes are a register on every machine: GCC takes wider vectors apart
// through the stack where the registers are not that wide, which is slower than no vectors at all.
constexpr std::size_t LANES = 4;
constexpr std::size_t QUADS = ROWS_A_GROUP / LANES;
using Lanes = float __attribute__((vector_size(LANES * sizeof(float))));

// The two sums of each row of a group.
struct Sums {
  std::array<float, ROWS_A_GROUP> dot;
  std::array<float, ROWS_A_GROUP> squares;
};

// One load, wherever the values begin.
Lanes load(const float* values) {
  Lanes lanes;
  std::memcpy(&lanes, values, sizeof lanes);
  return lanes;
}

// Lane r of columns[i] becomes element at + i of rows[r].
void loadColumns(const float* const* rows, std::size_t at, Lanes (&columns)[LANES]) {
  const Lanes a = load(rows[0] + at);
  const Lanes b = load(rows[1] + at);
  const Lanes c = load(rows[2] + at);
  const Lanes d = load(rows[3] + at);
  const Lanes abLow = __builtin_shufflevector(a, b, 0, 4, 1, 5);
  const Lanes abHigh = __builtin_shufflevector(a, b, 2, 6, 3, 7);
  const Lanes cdLow = __builtin_shufflevector(c, d, 0, 4, 1, 5);
  const Lanes cdHigh = __builtin_shufflevector(c, d, 2, 6, 3, 7);
  columns[0] = __builtin_shufflevector(abLow, cdLow, 0, 1, 4, 5);
  columns[1] = __builtin_shufflevector(abLow, cdLow, 2, 3, 6, 7);
  columns[2] = __builtin_shufflevector(abHigh, cdHigh, 0, 1, 4, 5);
  columns[3] = __builtin_shufflevector(abHigh, cdHigh, 2, 3, 6, 7);
}

// The sums over the first `elements` elements, a multiple of LANES.
Sums sumGroup(const float* query, std::size_t elements, const float* const* rows) {
  Lanes dot[QUADS] = {};
  Lanes squares[QUADS] = {};
  for (std::size_t at = 0; at < elements; at += LANES) {
    for (std::size_t quad = 0; quad < QUADS; ++quad) {
      Lanes columns[LANES];
      loadColumns(rows + quad * LANES, at, columns);
      for (std::size_t element = 0; element < LANES; ++element) {
        dot[quad] += columns[element] * query[at + element];
        squares[quad] += columns[element] * columns[element];
      }
    }
  }
  Sums sums;
  std::memcpy(sums.dot.data(), &dot, sizeof dot);
  std::memcpy(sums.squares.data(), &squares, sizeof squares);
  return sums;
}

}  // namespace

QueryVector::QueryVector(std::vector<float> values)
    : values_(std::move(values)), squaredNorm_(squaredNorm(values_)) {}

float QueryVector::similarityTo(std::span<const float> row) const { return cosine(values_, row); }

std::array<float, ROWS_A_GROUP> QueryVector::similaritiesTo(
    const std::array<const float*, ROWS_A_GROUP>& rows) const {
  const std::size_t whole = size() - size() % LANES;
  const Sums sums = sumGroup(values_.data(), whole, rows.data());

  std::array<float, ROWS_A_GROUP> similarities{};
  for (std::size_t row = 0; row < ROWS_A_GROUP; ++row) {
    float dot = sums.dot[row];
    float squares = sums.squares[row];
    for (std::size_t at = whole; at < size(); ++at) {
      dot += values_[at] * rows[row][at];
      squares += rows[row][at] * rows[row][at];
    }
    similarities[row] = cosineFromSums(dot, squaredNorm_, squares);
  }
  return similarities;
}

}  // namespace norvast
