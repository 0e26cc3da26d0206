#include "store/term_search.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "store/like_pattern.h"
#include "store/ordered_value.h"
#include "store/statement.h"
#include "text/term_finder.h"
#include "text/utf8.h"

namespace norvast {
namespace {

// Of LIKE, around a term.
constexpr std::size_t WILDCARDS = 2;

// The columns of the reading.
constexpr int PATH = 0;
constexpr int NAME = 1;
constexpr int MODIFIED = 5;
constexpr int SUMMARY = 6;
constexpr int ENTITIES = 7;

// A record that is among the best of some terms.
struct Kept {
  std::string path;
  OrderedValue modified;
  std::uint64_t number = 0;  // in the order of the reading
  std::uint32_t uses = 0;    // by how many terms
};

// One record of one term.
struct Hit {
  bool isByName;
  std::uint32_t row;  // its place among the kept ones
};

class Search {
  static constexpr std::uint32_t NONE = UINT32_MAX;

  // Which comes first: by name, then the newest, then as they were read.
  bool isBefore(const Hit& left, const Hit& right) const {
    if (left.isByName != right.isByName) return left.isByName;
    const Kept& leftRow = rows_[left.row];
    const Kept& rightRow = rows_[right.row];
    if (leftRow.modified != rightRow.modified) return leftRow.modified > rightRow.modified;
    return leftRow.number < rightRow.number;
  }
  auto order() const {
    return [this](const Hit& left, const Hit& right) { return isBefore(left, right); };
  }

 public:
  Search(const MCPStore& store, std::span<const std::string> terms, std::size_t limit)
      : terms_(terms),
        limit_(limit),
        mostPatternBytes_(static_cast<std::size_t>(
            sqlite3_limit(store.rdb.handle(), SQLITE_LIMIT_LIKE_PATTERN_LENGTH, -1))),
        finder_(terms),
        best_(terms.size()),
        lastRow_(terms.size()) {}

  // Takes the row that the statement stands at.
  void add(const Statement& row) {
    ++number_;
    candidate_ = NONE;
    offerAll(row, NAME);
    offerAll(row, SUMMARY);
    offerAll(row, ENTITIES);
    if (candidate_ != NONE && rows_[candidate_].uses == 0) free_.push_back(candidate_);
  }

  void visit(const std::function<void(std::size_t, const std::string&)>& visit) {
    for (std::size_t term = 0; term < best_.size(); ++term) {
      std::sort_heap(best_[term].begin(), best_[term].end(), order());
      for (const Hit& hit : best_[term]) visit(term, rows_[hit.row].path);
    }
  }

 private:
  void offerAll(const Statement& row, int column) {
    const std::string_view text = row.likeText(column);
    found_.clear();
    if (validUtf8Length(text) == text.size()) {
      finder_.find(text, found_);
    } else {
      findByPatterns(std::string(text));
    }
    for (const std::uint32_t term : found_) {
      if (std::exchange(lastRow_[term], number_) != number_) offer(row, term, column);
    }
  }

  // Of an invalid text LIKE has a reading of its own.
  void findByPatterns(const std::string& text) {
    for (std::uint32_t term = 0; term < terms_.size(); ++term) {
      if (isLike(text, likeContaining(terms_[term]))) found_.push_back(term);
    }
  }

  // `best_` has a heap for each term, whose front is the worst of its hits.
  void offer(const Statement& row, std::uint32_t term, int foundIn) {
    const bool isByName = foundIn == NAME;
    if (terms_[term].size() + WILDCARDS > mostPatternBytes_) return;  // LIKE refuses it
    std::vector<Hit>& best = best_[term];
    const bool isFull = best.size() == limit_;
    if (isFull && best.front().isByName && !isByName) return;
    const Hit hit{isByName, candidate(row)};
    if (isFull) {
      if (!isBefore(hit, best.front())) return;
      std::pop_heap(best.begin(), best.end(), order());
      release(best.back().row);
      best.pop_back();
    }
    if (rows_[hit.row].uses++ == 0) rows_[hit.row].path = row.text(PATH);
    best.push_back(hit);
    std::push_heap(best.begin(), best.end(), order());
  }

  // The place of the present row, without its path until a term uses it.
  std::uint32_t candidate(const Statement& row) {
    if (candidate_ != NONE) return candidate_;
    if (free_.empty()) {
      free_.push_back(static_cast<std::uint32_t>(rows_.size()));
      rows_.emplace_back();
    }
    candidate_ = free_.back();
    free_.pop_back();
    rows_[candidate_] = {{}, row.ordered(MODIFIED), number_, 0};
    return candidate_;
  }

  void release(std::uint32_t place) {
    if (--rows_[place].uses == 0) free_.push_back(place);
  }

  std::span<const std::string> terms_;
  std::size_t limit_;
  std::size_t mostPatternBytes_;
  TermFinder finder_;
  std::vector<std::vector<Hit>> best_;
  std::vector<std::uint64_t> lastRow_;  // by term, the last row that it was found in
  std::vector<Kept> rows_;
  std::vector<std::uint32_t> free_;  // places in `rows_` that no term uses
  std::vector<std::uint32_t> found_;
  std::uint64_t number_ = 0;
  std::uint32_t candidate_ = NONE;
};

// All columns that the search for one term names: without one of them this fails as that does.
constexpr const char* IN_NO_ORDER =
    R"(SELECT f.path,f.name,f.ext,f.grp,f.size,f.modified,a.summary,a.entities FROM file f
LEFT JOIN analysis a ON a.path = f.path)";

// The condition and the order of the search for one term: ?1 is a pattern that every text matches,
// ?2 is NULL and so no name does, which leaves the order by time alone.
constexpr const char* AS_ONE_SEARCH = R"(
WHERE f.name LIKE ?1 ESCAPE '\' OR a.summary LIKE ?1 ESCAPE '\' OR a.entities LIKE ?1 ESCAPE '\'
ORDER BY (CASE WHEN f.name LIKE ?2 ESCAPE '\' THEN 0 ELSE 1 END), f.modified DESC)";

// Among records of the same time the first that SQLite reads comes first. A table with one key has
// one order of reading. By which of several indexes SQLite reads depends on the whole statement, so
// that one is then run as it is, with the time and memory of a sort of the library.
Statement reading(const MCPStore& store) {
  const bool hasIndexes =
      store.scalar(
          "SELECT COUNT(*) FROM sqlite_schema WHERE type = 'index' AND lower(tbl_name) = 'file' "
          "AND sql IS NOT NULL") > 0;
  if (!hasIndexes) return {store.rdb, IN_NO_ORDER};
  return {store.rdb, std::string(IN_NO_ORDER) + AS_ONE_SEARCH, std::vector<std::string>{"%%"}};
}

}  // namespace

void searchTerms(const MCPStore& store, std::span<const std::string> terms, std::int64_t limit,
                 const std::function<void(std::size_t, const std::string&)>& visit) {
  if (terms.empty() || !store.rdb) return;
  Statement rows = reading(store);
  Search search(store, terms, static_cast<std::size_t>(std::clamp<std::int64_t>(limit, 1, 500)));
  while (rows.step()) search.add(rows);
  if (rows.isDone()) search.visit(visit);
}

}  // namespace norvast
