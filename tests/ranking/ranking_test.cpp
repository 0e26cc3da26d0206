// Similarity: the plain rule, the side-by-side sums that must equal it to the bit, and the ranking.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "ranking/cosine.h"
#include "ranking/row_group.h"
#include "ranking/similarity_ranking.h"
#include "store/vector_rows.h"

namespace norvast {
namespace {

using Sizes = std::initializer_list<std::size_t>;
using Vector = std::vector<float>;

constexpr float INFINITE = std::numeric_limits<float>::infinity();
constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

TEST(Cosine, FollowsThePlainRule) {
  const struct {
    Vector a;
    Vector b;
    float similarity;
  } rows[] = {
      {{}, {}, 0},
      {{1, 0}, {1, 0, 0}, 0},
      {{0, 0}, {1, 1}, 0},
      {{3, 4}, {3, 4}, 1},
      {{3, 4}, {-3, -4}, -1},
      {{1, 0}, {0, 1}, 0},
      {{1e-30F, 0}, {1, 0}, 0},          // the square is below every denormal
      {{1e8F, 1, -1e8F}, {1, 1, 1}, 0},  // 1e8 + 1 is 1e8: the sum is single-precision, in order
  };
  for (const auto& row : rows) EXPECT_EQ(cosine(row.a, row.b), row.similarity);
  EXPECT_TRUE(std::isnan(cosine(Vector{NOT_A_NUMBER, 1}, Vector{1, 1})));
  EXPECT_TRUE(std::isnan(cosine(Vector{1e30F, 1}, Vector{1e30F, 1})));
}

// Equal bits; any NaN equals any other.
bool sameFloat(float left, float right) {
  return std::bit_cast<std::uint32_t>(left) == std::bit_cast<std::uint32_t>(right) ||
         (std::isnan(left) && std::isnan(right));
}

// Mostly ordinary values, and now and then one that arithmetic trips over.
Vector randomVector(std::mt19937& random, std::size_t size, bool withOddities) {
  static constexpr float ODDITIES[] = {0.0F,   -0.0F, INFINITE, -INFINITE, NOT_A_NUMBER,
                                       1e-40F, 1e38F, -1e38F,   1e-45F};
  std::uniform_real_distribution<float> ordinary(-1, 1);
  Vector values(size);
  for (float& value : values) {
    value = ordinary(random);
    if (withOddities && random() % 200 == 0) value = ODDITIES[random() % std::size(ODDITIES)];
  }
  return values;
}

TEST(RowGroup, EqualsThePlainRuleToTheBit) {
  std::mt19937 random(7);
  for (const std::size_t size : Sizes{1, 2, 7, 8, 9, 15, 16, 17, 63, 100, 511, 512, 513, 1000}) {
    for (const bool withOddities : {false, true}) {
      const Vector query = randomVector(random, size, withOddities && size % 2 == 0);
      std::vector<Vector> rows(ROWS_A_GROUP);
      std::array<const float*, ROWS_A_GROUP> pointers{};
      for (std::size_t row = 0; row < ROWS_A_GROUP; ++row) {
        // Every other row begins where no vector register is aligned.
        const std::size_t first = row % 2;
        rows[row] = randomVector(random, first + size, withOddities);
        if (row == 5) std::fill(rows[row].begin(), rows[row].end(), 0.0F);
        pointers[row] = rows[row].data() + first;
      }
      const auto similarities = QueryVector(query).similaritiesTo(pointers);
      for (std::size_t row = 0; row < ROWS_A_GROUP; ++row) {
        EXPECT_TRUE(sameFloat(similarities[row], cosine(query, {pointers[row], size})))
            << "size " << size << ", row " << row << ": " << similarities[row];
      }
    }
  }
}

// What the ranking must equal: every row scored by the plain rule, then one stable sort.
std::vector<std::string> sortedPaths(const Vector& query, const std::vector<EmbeddingRow>& rows,
                                     std::size_t limit, SamePath samePath) {
  std::vector<std::pair<float, std::string>> scored;
  scored.reserve(rows.size());
  for (const EmbeddingRow& row : rows) scored.emplace_back(cosine(query, row.vec), row.path);
  const auto rank = [](float value) { return std::isnan(value) ? -INFINITE : value; };
  std::stable_sort(scored.begin(), scored.end(), [&rank](const auto& left, const auto& right) {
    return rank(left.first) > rank(right.first);
  });
  std::vector<std::string> paths;
  std::set<std::string> seen;
  for (const auto& [similarity, path] : scored) {
    if (paths.size() == limit) break;
    if (samePath == SamePath::bestAlone && !seen.insert(path).second) continue;
    paths.push_back(path);
  }
  return paths;
}

TEST(SimilarityRanking, IsThePrefixOfAStableSort) {
  std::mt19937 random(11);
  for (const std::size_t count : Sizes{0, 1, 7, 8, 9, 17, 333}) {
    const Vector query = count == 17 ? Vector() : Vector{1, 0, 0.5F};
    std::vector<EmbeddingRow> rows;
    for (std::size_t number = 0; number < count; ++number) {
      // Few distinct values, so that ties abound; other lengths, zero vectors and NaN among them.
      Vector vec = {static_cast<float>(random() % 3), static_cast<float>(random() % 2), 1};
      if (random() % 9 == 0) vec.resize(random() % 5);
      if (random() % 13 == 0) vec.assign(3, NOT_A_NUMBER);
      if (random() % 17 == 0) vec.assign(3, 0);
      rows.push_back({"/" + std::to_string(random() % (count / 2 + 1)), vec});
    }
    for (const std::size_t limit : Sizes{0, 1, 3, 16, 50, 1000}) {
      for (const SamePath samePath : {SamePath::each, SamePath::bestAlone}) {
        SimilarityRanking<EmbeddingRow> ranking(query, limit, samePath);
        for (const EmbeddingRow& row : rows) {
          ranking.slot() = row;
          ranking.add();
        }
        std::vector<std::string> paths;
        for (const auto& ranked : ranking.take()) paths.push_back(ranked.row.path);
        EXPECT_EQ(paths, sortedPaths(query, rows, limit, samePath)) << count << ", " << limit;
      }
    }
  }
}

}  // namespace
}  // namespace norvast
