// MCPStore: the server's only door to the index database, and its two query primitives.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/connection.h"

namespace norvast {

// Where the index lies: Norvast/norvast.sqlite under Application Support. Nothing when the user
// has no such directory.
std::optional<std::string> indexDatabasePath();

// The index, which another program fills and changes at any time. Nothing here reports an error:
// a statement that fails gives 0 or the rows read before it failed.
class MCPStore {
 public:
  using Binds = std::vector<std::string>;
  using Row = std::vector<std::string>;  // one text a column

  // The store of this user, or nothing when the database is missing, is no regular file or cannot
  // be opened. Creates nothing and reads nothing from the database.
  static std::optional<MCPStore> open();

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
