// Similarity ranking: the best rows for a query, of any number of rows, in bounded memory.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "ranking/row_group.h"

namespace norvast {

// Where a row stands among the others.
struct Rank {
  float similarity = 0;
  std::uint64_t number = 0;  // of the row in the store's order

  // True when this row comes first: by descending similarity, a NaN below every number, and equal
  // ones in the store's order.
  bool isBefore(const Rank& other) const {
    const bool isNaN = std::isnan(similarity);
    if (isNaN != std::isnan(other.similarity)) return !isNaN;
    if (!isNaN && similarity != other.similarity) return similarity > other.similarity;
    return number < other.number;
  }
};

// How two rows of one path are taken.
enum class SamePath { each, bestAlone };

// Takes rows in the store's order and keeps the best `limit` of them: exactly the first `limit` of
// a stable sort by descending similarity, a NaN below every number. With SamePath::bestAlone only
// the first row of each path in that sort counts. Row is a struct with `path` and `vec`.
template <typename Row>
class SimilarityRanking {
 public:
  struct Ranked {
    Rank rank;
    Row row;  // without its vector
  };

  SimilarityRanking(std::vector<float> query, std::size_t limit, SamePath samePath = SamePath::each)
      : query_(std::move(query)), limit_(limit), samePath_(samePath) {}

  // Where the next row is to be put before `add` takes it. What it holds is old.
  Row& slot() { return group_[waiting_]; }

  // Takes the row in the slot, the next in the store's order.
  void add() {
    if (limit_ == 0) return;
    numbers_[waiting_] = count_++;
    const Row& row = slot();
    if (row.vec.size() != query_.size() || row.vec.empty()) {
      offer({query_.similarityTo(row.vec), numbers_[waiting_]}, slot());
    } else if (++waiting_ == ROWS_A_GROUP) {
      scoreGroup();
    }
  }

  // The best rows, best first. The ranking is used up.
  std::vector<Ranked> take() {
    for (std::size_t at = 0; at < waiting_; ++at) {
      offer({query_.similarityTo(group_[at].vec), numbers_[at]}, group_[at]);
    }
    waiting_ = 0;
    std::sort(best_.begin(), best_.end(), isBefore);
    return std::move(best_);
  }

 private:
  static bool isBefore(const Ranked& left, const Ranked& right) {
    return left.rank.isBefore(right.rank);
  }

  void scoreGroup() {
    std::array<const float*, ROWS_A_GROUP> vectors{};
    for (std::size_t at = 0; at < ROWS_A_GROUP; ++at) vectors[at] = group_[at].vec.data();
    const auto similarities = query_.similaritiesTo(vectors);
    for (std::size_t at = 0; at < ROWS_A_GROUP; ++at) {
      offer({similarities[at], numbers_[at]}, group_[at]);
    }
    waiting_ = 0;
  }

  // `best_` is a heap whose front is the worst of the rows kept.
  void offer(Rank rank, Row& row) {
    const bool isFull = best_.size() == limit_;
    if (isFull && !rank.isBefore(best_.front().rank)) return;
    if (samePath_ == SamePath::bestAlone && meetsItsPath(rank, row)) return;
    if (isFull) {
      std::pop_heap(best_.begin(), best_.end(), isBefore);
    } else {
      best_.emplace_back();
    }
    put(best_.back(), rank, row);
    std::push_heap(best_.begin(), best_.end(), isBefore);
  }

  // True when a row of that path is kept already; the better of the two stays.
  bool meetsItsPath(Rank rank, Row& row) {
    const auto kept = std::find_if(best_.begin(), best_.end(), [&row](const Ranked& ranked) {
      return ranked.row.path == row.path;
    });
    if (kept == best_.end()) return false;
    if (rank.isBefore(kept->rank)) {
      put(*kept, rank, row);
      std::make_heap(best_.begin(), best_.end(), isBefore);
    }
    return true;
  }

  static void put(Ranked& place, Rank rank, Row& row) {
    place.rank = rank;
    std::swap(place.row, row);
    std::swap(place.row.vec, row.vec);  // the vector has done its work: its memory stays out there
  }

  QueryVector query_;
  std::size_t limit_;
  SamePath samePath_;
  std::uint64_t count_ = 0;
  std::array<Row, ROWS_A_GROUP> group_;
  std::array<std::uint64_t, ROWS_A_GROUP> numbers_{};
  std::size_t waiting_ = 0;  // rows in the group
  std::vector<Ranked> best_;
};

}  // namespace norvast
