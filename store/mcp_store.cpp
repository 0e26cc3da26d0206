#include "store/mcp_store.h"

#include <utility>

#include "platform/folders.h"
#include "store/statement.h"

namespace norvast {

std::optional<std::string> indexDatabasePath() {
  const auto support = applicationSupportDirectory();
  if (!support) return std::nullopt;
  return *support + "/Norvast/norvast.sqlite";
}

std::optional<MCPStore> MCPStore::open() {
  const auto path = indexDatabasePath();
  // SQLite would open a directory, and wait at a FIFO for ever.
  if (!path || !regularFileExists(*path)) return std::nullopt;

  useSqliteFromOneThread();
  MCPStore store;
  store.rdb = Connection::openReadOnly(*path);
  if (!store.rdb) return std::nullopt;
  store.wdb = Connection::openReadWrite(*path);
  return store;
}

// The connection for reading goes first. It fails where a crash left a change half written, and
// then the connection for writing is left alone, which would take that change back at once.
std::optional<MCPStore> MCPStore::openToServe() {
  auto store = open();
  if (!store) return std::nullopt;
  store->rdb.openLogNow();
  if (!store->rdb.hasFailed()) store->wdb.openLogNow();
  return store;
}

std::int64_t MCPStore::scalar(const std::string& sql, const Binds& binds) const {
  Statement statement(rdb, sql, binds);
  return statement.step() ? statement.integer(0) : 0;
}

std::vector<MCPStore::Row> MCPStore::rows(const std::string& sql, const Binds& binds) const {
  std::vector<Row> rows;
  Statement statement(rdb, sql, binds);
  while (statement.step()) {
    Row& row = rows.emplace_back();
    const int columns = statement.columnCount();
    row.reserve(static_cast<std::size_t>(columns));
    for (int column = 0; column < columns; ++column) row.push_back(statement.text(column));
  }
  return rows;
}

}  // namespace norvast
