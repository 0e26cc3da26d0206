#include "indexer/index/scratch_index.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "indexer/index/index_database.h"
#include "indexer/index/index_schema.h"
#include "platform/folders.h"
#include "store/mcp_store.h"
#include "store/statement.h"

namespace norvast::indexer {
namespace {

// Of these the layout alone is taken: they may hold gigabytes.
constexpr std::array<std::string_view, 4> WITHOUT_ROWS = {"analysis", "embedding", "chunk",
                                                          "audit_event"};

// As a URI of SQLite's (https://www.sqlite.org/uri.html).
std::string uriOf(const std::string& path, const std::string& query) {
  std::string uri = "file:";
  for (const char letter : path) {
    switch (letter) {
      case '%':
        uri += "%25";
        break;
      case '?':
        uri += "%3f";
        break;
      case '#':
        uri += "%23";
        break;
      default:
        uri += letter;
    }
  }
  return uri + "?" + query;
}

// Whether all that the index holds is in its main file, which then can be read without a lock. A
// reader with locks leaves an empty log and its shared memory behind.
bool isAlone(const std::string& path) {
  std::error_code none;
  const std::uintmax_t logged = std::filesystem::file_size(path + "-wal", none);
  return (none || logged == 0) && !fileExists(path + "-journal");
}

struct Version {
  std::filesystem::file_time_type written;
  std::uintmax_t size;
  bool isAlone;

  bool operator==(const Version&) const = default;
};

Version versionOf(const std::string& path) {
  std::error_code failure;  // shows as a difference, or as a database that cannot be read
  return {std::filesystem::last_write_time(path, failure),
          std::filesystem::file_size(path, failure), isAlone(path)};
}

bool run(const Connection& scratch, const std::string& sql) {
  return Statement(scratch, sql).run();
}

struct Table {
  std::string name;
  std::string layout;
};

std::optional<std::vector<Table>> tablesOf(const Connection& scratch) {
  Statement statement(scratch,
                      "SELECT name, sql FROM disk.sqlite_schema WHERE type = 'table' AND sql LIKE "
                      "'CREATE TABLE %' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\'");
  std::vector<Table> tables;
  while (statement.step()) tables.push_back({statement.text(0), statement.text(1)});
  if (!statement.isDone()) return std::nullopt;
  return tables;
}

bool copy(const Connection& scratch, const Table& table) {
  const auto* found = std::find(WITHOUT_ROWS.begin(), WITHOUT_ROWS.end(), table.name);
  return run(scratch, table.layout) &&
         (found != WITHOUT_ROWS.end() ||
          run(scratch, "INSERT INTO main." + table.name + " SELECT * FROM disk." + table.name));
}

bool copyVersion(const Connection& scratch) {
  Statement statement(scratch, "PRAGMA disk.user_version");
  return statement.step() &&
         run(scratch, "PRAGMA user_version = " + std::to_string(statement.integer(0)));
}

// In the tables' layout on disk.
bool copyAll(const Connection& scratch, const std::string& path, bool isAlone) {
  const std::string uri = uriOf(path, isAlone ? "mode=ro&immutable=1" : "mode=ro");
  if (!Statement(scratch, "ATTACH ? AS disk", std::vector{uri}).run()) return false;
  const auto tables = run(scratch, "BEGIN") ? tablesOf(scratch) : std::nullopt;
  return tables &&
         std::all_of(tables->begin(), tables->end(),
                     [&scratch](const Table& table) { return copy(scratch, table); }) &&
         copyVersion(scratch) && run(scratch, "COMMIT") && run(scratch, "DETACH disk");
}

}  // namespace

std::variant<Connection, std::string> scratchIndex() {
  Connection scratch = Connection::openInMemory();
  const auto path = indexDatabasePath();
  if (path && regularFileExists(*path)) {
    if (const auto why = objectionToIndex()) return *why;
    const Version before = versionOf(*path);
    const bool isCopied = copyAll(scratch, *path, before.isAlone);
    if (before != versionOf(*path)) return "the index was changed meanwhile; run this again";
    if (!isCopied) return "the index at " + *path + " cannot be read: " + scratch.lastFailure();
  }
  if (const auto why = obstacleToPresentTables(scratch)) return *why;
  return scratch;
}

}  // namespace norvast::indexer
