#include "ranking/row_group.h"

#include <cstring>
#include <utility>

#include "ranking/cosine.h"

namespace norvast {
namespace {

constexpr std::size_t LANES = ROWS_A_GROUP / 2;

// Eight floats side by side: one register where the processor has that width, else several.
using Lanes = float __attribute__((vector_size(LANES * sizeof(float))));

// Elements of one row, taken from memory in one load. (A memcpy into a Lanes goes through the stack
// in halves, which the load behind it then waits for.)
constexpr std::size_t STEP = 4;
using Quarter = float __attribute__((vector_size(STEP * sizeof(float))));
using QuarterInMemory =
    float __attribute__((vector_size(STEP * sizeof(float)), aligned(alignof(float)), may_alias));

// The two sums of each row of a group.
struct Sums {
  std::array<float, ROWS_A_GROUP> dot;
  std::array<float, ROWS_A_GROUP> squares;
};

[[gnu::always_inline]] inline void load(const float* low, const float* high, Lanes& both) {
  const Quarter lowFour = *reinterpret_cast<const QuarterInMemory*>(low);
  const Quarter highFour = *reinterpret_cast<const QuarterInMemory*>(high);
  both = __builtin_shufflevector(lowFour, highFour, 0, 1, 2, 3, 4, 5, 6, 7);
}

// Lane r of columns[i] becomes element at + i of rows[r]: rows 0 to 3 are transposed in the low
// half of the registers, rows 4 to 7 in the high one.
[[gnu::always_inline]] inline void loadColumns(const float* const* rows, std::size_t at,
                                               Lanes (&columns)[STEP]) {
  Lanes a;
  Lanes b;
  Lanes c;
  Lanes d;
  load(rows[0] + at, rows[4] + at, a);
  load(rows[1] + at, rows[5] + at, b);
  load(rows[2] + at, rows[6] + at, c);
  load(rows[3] + at, rows[7] + at, d);
  const Lanes abLow = __builtin_shufflevector(a, b, 0, 8, 1, 9, 4, 12, 5, 13);
  const Lanes abHigh = __builtin_shufflevector(a, b, 2, 10, 3, 11, 6, 14, 7, 15);
  const Lanes cdLow = __builtin_shufflevector(c, d, 0, 8, 1, 9, 4, 12, 5, 13);
  const Lanes cdHigh = __builtin_shufflevector(c, d, 2, 10, 3, 11, 6, 14, 7, 15);
  columns[0] = __builtin_shufflevector(abLow, cdLow, 0, 1, 8, 9, 4, 5, 12, 13);
  columns[1] = __builtin_shufflevector(abLow, cdLow, 2, 3, 10, 11, 6, 7, 14, 15);
  columns[2] = __builtin_shufflevector(abHigh, cdHigh, 0, 1, 8, 9, 4, 5, 12, 13);
  columns[3] = __builtin_shufflevector(abHigh, cdHigh, 2, 3, 10, 11, 6, 7, 14, 15);
}

// Adds STEP elements of every row to its sums, one element after the other.
[[gnu::always_inline]] inline void addColumns(const float* query, const float* const* rows,
                                              std::size_t at, Lanes& dot, Lanes& squares) {
  Lanes columns[STEP];
  loadColumns(rows, at, columns);
  for (std::size_t element = 0; element < STEP; ++element) {
    dot += columns[element] * query[at + element];
    squares += columns[element] * columns[element];
  }
}

[[gnu::always_inline]] inline void sumGroup(std::span<const float> query, const float* const* rows,
                                            Sums& sums) {
  Lanes dot[2] = {};
  Lanes squares[2] = {};
  const std::size_t whole = query.size() - query.size() % STEP;
  for (std::size_t at = 0; at < whole; at += STEP) {
    addColumns(query.data(), rows, at, dot[0], squares[0]);
    addColumns(query.data(), rows + LANES, at, dot[1], squares[1]);
  }
  std::memcpy(sums.dot.data(), &dot, sizeof dot);
  std::memcpy(sums.squares.data(), &squares, sizeof squares);
}

using SumGroup = void (*)(std::span<const float>, const float* const*, Sums&);

void sumGroupAnywhere(std::span<const float> query, const float* const* rows, Sums& sums) {
  sumGroup(query, rows, sums);
}

#if defined(__x86_64__)
// The same source for wider registers. Without "fma", so that nothing can be fused.
[[gnu::target("avx2")]] void sumGroupAvx2(std::span<const float> query, const float* const* rows,
                                          Sums& sums) {
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
  Sums sums{};
  sumRows(values_, rows.data(), sums);

  std::array<float, ROWS_A_GROUP> similarities{};
  for (std::size_t row = 0; row < ROWS_A_GROUP; ++row) {
    float dot = sums.dot[row];
    float squares = sums.squares[row];
    for (std::size_t at = size() - size() % STEP; at < size(); ++at) {
      dot += values_[at] * rows[row][at];
      squares += rows[row][at] * rows[row][at];
    }
    similarities[row] = cosineFromSums(dot, squaredNorm_, squares);
  }
  return similarities;
}

}  // namespace norvast
