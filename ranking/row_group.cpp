#include "ranking/row_group.h"

#include <cstring>
#include <utility>

#include "ranking/cosine.h"

namespace norvast {
namespace {

constexpr std::size_t LANES = 8;

// Eight floats side by side: one register where the processor has that width, else several.
using Lanes = float __attribute__((vector_size(LANES * sizeof(float))));

struct Sums {
  alignas(Lanes) std::array<float, LANES> dot;
  alignas(Lanes) std::array<float, LANES> squares;
};

// Lane r of columns[i] becomes element i of rows[r]: eight elements of eight rows, transposed
// within the halves of a register first and across them last.
[[gnu::always_inline]] inline void loadTransposed(const float* const* rows, std::size_t at,
                                                  Lanes (&columns)[LANES]) {
  Lanes r[LANES];
  for (std::size_t row = 0; row < LANES; ++row) std::memcpy(&r[row], rows[row] + at, sizeof r[row]);

  Lanes pairs[LANES];
  for (std::size_t row = 0; row < LANES; row += 2) {
    pairs[row] = __builtin_shufflevector(r[row], r[row + 1], 0, 8, 1, 9, 4, 12, 5, 13);
    pairs[row + 1] = __builtin_shufflevector(r[row], r[row + 1], 2, 10, 3, 11, 6, 14, 7, 15);
  }
  Lanes fours[LANES];
  for (std::size_t half = 0; half < LANES; half += 4) {
    for (std::size_t odd = 0; odd < 2; ++odd) {
      const Lanes& low = pairs[half + odd];
      const Lanes& high = pairs[half + odd + 2];
      fours[half + 2 * odd] = __builtin_shufflevector(low, high, 0, 1, 8, 9, 4, 5, 12, 13);
      fours[half + 2 * odd + 1] = __builtin_shufflevector(low, high, 2, 3, 10, 11, 6, 7, 14, 15);
    }
  }
  for (std::size_t at4 = 0; at4 < 4; ++at4) {
    const Lanes& low = fours[at4];
    const Lanes& high = fours[at4 + 4];
    columns[at4] = __builtin_shufflevector(low, high, 0, 1, 2, 3, 8, 9, 10, 11);
    columns[at4 + 4] = __builtin_shufflevector(low, high, 4, 5, 6, 7, 12, 13, 14, 15);
  }
}

// Adds elements `at` to `at` + LANES of eight rows to their sums, one element after the other.
[[gnu::always_inline]] inline void addColumns(const float* query, const float* const* rows,
                                              std::size_t at, Lanes& dot, Lanes& squares) {
  Lanes columns[LANES];
  loadTransposed(rows, at, columns);
  for (std::size_t element = 0; element < LANES; ++element) {
    dot += columns[element] * query[at + element];
    squares += columns[element] * columns[element];
  }
}

[[gnu::always_inline]] inline void sumGroup(std::span<const float> query, const float* const* rows,
                                            Sums (&sums)[ROWS_A_GROUP / LANES]) {
  Lanes firstDot{};
  Lanes firstSquares{};
  Lanes secondDot{};
  Lanes secondSquares{};
  const std::size_t whole = query.size() - query.size() % LANES;
  for (std::size_t at = 0; at < whole; at += LANES) {
    addColumns(query.data(), rows, at, firstDot, firstSquares);
    addColumns(query.data(), rows + LANES, at, secondDot, secondSquares);
  }
  std::memcpy(sums[0].dot.data(), &firstDot, sizeof firstDot);
  std::memcpy(sums[0].squares.data(), &firstSquares, sizeof firstSquares);
  std::memcpy(sums[1].dot.data(), &secondDot, sizeof secondDot);
  std::memcpy(sums[1].squares.data(), &secondSquares, sizeof secondSquares);
}

using SumGroup = void (*)(std::span<const float>, const float* const*,
                          Sums (&)[ROWS_A_GROUP / LANES]);

void sumGroupAnywhere(std::span<const float> query, const float* const* rows,
                      Sums (&sums)[ROWS_A_GROUP / LANES]) {
  sumGroup(query, rows, sums);
}

#if defined(__x86_64__)
// The same source for wider registers. Without "fma", so that nothing can be fused.
[[gnu::target("avx2")]] void sumGroupAvx2(std::span<const float> query, const float* const* rows,
                                          Sums (&sums)[ROWS_A_GROUP / LANES]) {
  sumGroup(query, rows, sums);
}

SumGroup fastestSumGroup() {
  return __builtin_cpu_supports("avx2") != 0 ? sumGroupAvx2 : sumGroupAnywhere;
}
#else
SumGroup fastestSumGroup() { return sumGroupAnywhere; }
#endif

}  // namespace

QueryVector::QueryVector(std::vector<float> values)
    : values_(std::move(values)), squaredNorm_(squaredNorm(values_)) {}

float QueryVector::similarityTo(std::span<const float> row) const { return cosine(values_, row); }

std::array<float, ROWS_A_GROUP> QueryVector::similaritiesTo(
    const std::array<const float*, ROWS_A_GROUP>& rows) const {
  static const SumGroup sumRows = fastestSumGroup();
  Sums sums[ROWS_A_GROUP / LANES];
  sumRows(values_, rows.data(), sums);

  std::array<float, ROWS_A_GROUP> similarities{};
  for (std::size_t row = 0; row < ROWS_A_GROUP; ++row) {
    float dot = sums[row / LANES].dot[row % LANES];
    float squares = sums[row / LANES].squares[row % LANES];
    for (std::size_t at = size() - size() % LANES; at < size(); ++at) {
      dot += values_[at] * rows[row][at];
      squares += rows[row][at] * rows[row][at];
    }
    similarities[row] = cosineFromSums(dot, squaredNorm_, squares);
  }
  return similarities;
}

}  // namespace norvast
