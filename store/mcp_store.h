// MCPStore: the server's only door to the index database, and its two query primitives.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/connection.h"

namespace norvast {

// Where the index lies: Norvast/norvast.sqlite under Application Support. Nothing when the user
// has no such directory.
std::optional<std::string> indexDatabasePath();

// A client gets its answer within 30 s. This leaves time to read a file and to wait for a lock.
inline constexpr std::chrono::seconds MOST_READING_TIME{20};

// The index, which another program fills and changes at any time. Nothing here reports an error:
// a statement that fails gives 0 or the rows read before it failed.
class MCPStore {
 public:
  using Binds = std::vector<std::string>;
  using Row = std::vector<std::string>;  // one text a column

  // The store of this user, or nothing when the database is missing, is no regular file or cannot
  // be opened. Creates nothing and reads nothing from the database.
  static std::optional<MCPStore> open();

  // The same for a program that keeps the store open for hours: both connections open their
  // write-ahead log at once, so that they find the log of this index and not of one that is put in
  // its place later.
  static std::optional<MCPStore> openToServe();

  // Bounds the time of all that is read from now on by one answer: an index may hold a view without
  // an end. What was read until then is the answer.
  void limitTime() const { rdb.limitTime(MOST_READING_TIME); }

  // First column of the first row as an integer, by SQLite's conversion, or 0. Binds are texts for
  // the parameters in order.
  std::int64_t scalar(const std::string& sql, const Binds& binds = {}) const;

  // All rows, every column as text: an integer in decimal, a real as SQLite renders it, NULL as
  // the empty text.
  std::vector<Row> rows(const std::string& sql, const Binds& binds = {}) const;

  Connection rdb;  // opened read-only: every query
  Connection wdb;  // the audit insert alone; no connection when it could not be opened

 private:
  MCPStore() = default;
};

}  // namespace norvast
