#include "indexer/index/index_schema.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "store/statement.h"
#include "store/transaction.h"

namespace norvast::indexer {
namespace {

// Whether the rows of a table can be made anew from the files.
enum class Origin { kept, derived };

struct Table {
  const char* name;
  Origin origin;
  const char* layout;
};

// All tables about files are joined on `path`, the absolute path of the file. `nanoseconds`
// completes `modified`, so that a change within the same second is seen. mcp_exposure follows from
// the rules and the files that are known; it is kept, for a server reads it meanwhile.
//
// What is found by its path is kept in the order of paths alone, without row ids. Passages are not:
// files come in no order of paths, and their long rows would leave a third of each page empty.
constexpr std::array TABLES = {
    Table{
        "file", Origin::kept,
        "file(path TEXT PRIMARY KEY NOT NULL, name TEXT NOT NULL, ext TEXT NOT NULL, grp TEXT NOT "
        "NULL, size INTEGER NOT NULL, modified INTEGER NOT NULL, nanoseconds INTEGER NOT NULL) "
        "WITHOUT ROWID"},
    Table{"mcp_exposure", Origin::kept,
          "mcp_exposure(path TEXT PRIMARY KEY NOT NULL, allow_content INTEGER NOT NULL) WITHOUT "
          "ROWID"},
    Table{"analysis", Origin::derived,
          "analysis(path TEXT PRIMARY KEY NOT NULL, summary TEXT, entities TEXT, method TEXT, "
          "title TEXT) WITHOUT ROWID"},
    Table{"embedding", Origin::derived,
          "embedding(path TEXT PRIMARY KEY NOT NULL, vec BLOB NOT NULL) WITHOUT ROWID"},
    Table{"chunk", Origin::derived,
          "chunk(path TEXT NOT NULL, ord INTEGER NOT NULL, text TEXT NOT NULL, vec BLOB NOT NULL, "
          "heading TEXT NOT NULL, PRIMARY KEY(path, ord))"},
    // Why a file has no text, and the version of the reader that found so.
    Table{"failure", Origin::derived,
          "failure(path TEXT PRIMARY KEY NOT NULL, reason TEXT NOT NULL, reader INTEGER NOT NULL) "
          "WITHOUT ROWID"},
    Table{
        "audit_event", Origin::kept,
        "audit_event(id INTEGER PRIMARY KEY, ts INTEGER NOT NULL, verb TEXT NOT NULL, object TEXT "
        "NOT NULL, result TEXT NOT NULL, severity TEXT NOT NULL)"},
    // What the user decided: which folders and files are indexed, what of them is passed over, and
    // what clients may see; with the identity of what that was decided for.
    Table{"root", Origin::kept,
          "root(path TEXT PRIMARY KEY NOT NULL, gitignore INTEGER NOT NULL) WITHOUT ROWID"},
    Table{
        "exclusion", Origin::kept,
        "exclusion(root TEXT NOT NULL, pattern TEXT NOT NULL, PRIMARY KEY(root, pattern)) WITHOUT "
        "ROWID"},
    Table{"rule", Origin::kept,
          "rule(path TEXT PRIMARY KEY NOT NULL, kind TEXT NOT NULL, identity TEXT NOT NULL DEFAULT "
          "'') WITHOUT ROWID"},
    // What restricted files are known again by, with the path where each was seen last and the kind
    // of the rule for it there.
    Table{"restricted_file", Origin::kept,
          "restricted_file(identity TEXT PRIMARY KEY NOT NULL, path TEXT NOT NULL, kind TEXT NOT "
          "NULL) WITHOUT ROWID"},
    // Removals that began: at and below these paths rows are left that are not to be indexed.
    Table{"removal", Origin::kept, "removal(path TEXT PRIMARY KEY NOT NULL) WITHOUT ROWID"},
    Table{"setting", Origin::kept,
          "setting(name TEXT PRIMARY KEY NOT NULL, value TEXT NOT NULL) WITHOUT ROWID"},
};

bool run(const Connection& index, const std::string& sql) { return Statement(index, sql).run(); }

std::vector<std::string> texts(const Connection& index, const std::string& sql,
                               const std::vector<std::string>& binds) {
  Statement statement(index, sql, binds);
  std::vector<std::string> all;
  while (statement.step()) all.push_back(statement.text(0));
  return all;
}

bool create(const Connection& index, const Table& table) {
  return run(index, std::string("CREATE TABLE ") + table.layout);
}

// The columns that both tables have, in one list.
std::string sharedColumns(const Connection& index, const std::string& one,
                          const std::string& other) {
  std::string columns;
  for (const std::string& name : texts(index,
                                       "SELECT name FROM pragma_table_info(?) WHERE name IN "
                                       "(SELECT name FROM pragma_table_info(?))",
                                       {one, other})) {
    columns += (columns.empty() ? "" : ",") + name;
  }
  return columns;
}

// Gives a table its new layout with the rows that it has.
bool copyInto(const Connection& index, const Table& table) {
  const std::string old = std::string("earlier_") + table.name;
  if (!run(index, std::string("ALTER TABLE ") + table.name + " RENAME TO " + old)) return false;
  if (!create(index, table)) return false;
  const std::string columns = sharedColumns(index, table.name, old);
  return run(index, std::string("INSERT INTO ") + table.name + "(" + columns + ") SELECT " +
                        columns + " FROM " + old) &&
         run(index, "DROP TABLE " + old);
}

bool dropRows(const Connection& index, const Table& table) {
  return run(index, std::string("DROP TABLE ") + table.name) && create(index, table) &&
         run(index, "UPDATE file SET nanoseconds = " + std::to_string(READ_ANEW));
}

// As SQLite keeps the text that made the table; nothing when there is none.
std::vector<std::string> layouts(const Connection& index, const Table& table) {
  return texts(index, "SELECT sql FROM sqlite_schema WHERE type = 'table' AND name = ?",
               {table.name});
}

// A table that still has row ids serves as well, only not as fast: its rows are worth more.
bool isPresent(const std::string& found, const Table& table) {
  const std::string present = std::string("CREATE TABLE ") + table.layout;
  return found == present || found + " WITHOUT ROWID" == present;
}

bool bringUpToDate(const Connection& index, const Table& table) {
  const auto found = layouts(index, table);
  if (found.empty()) return create(index, table);
  if (isPresent(found.front(), table)) return true;
  return table.origin == Origin::kept ? copyInto(index, table) : dropRows(index, table);
}

// The first version knew a nomination by the rows of its files alone.
bool keepNominations(const Connection& index) {
  return run(index,
             "INSERT OR IGNORE INTO rule(path,kind) SELECT path, CASE allow_content WHEN 1 THEN "
             "'content' ELSE 'metadata' END FROM mcp_exposure");
}

// Up to version 4 removals that began were settings, named "removing " and the path.
bool keepRemovals(const Connection& index) {
  return run(index,
             "INSERT OR IGNORE INTO removal(path) SELECT substr(name, 10) FROM setting WHERE name "
             "LIKE 'removing /%'") &&
         run(index, "DELETE FROM setting WHERE name LIKE 'removing /%'");
}

std::int64_t versionOf(const Connection& index) {
  Statement statement(index, "PRAGMA user_version");
  return statement.step() ? statement.integer(0) : -1;
}

// Within the caller's transaction.
bool bringTablesUpToDate(const Connection& index) {
  const std::int64_t version = versionOf(index);
  if (version == INDEX_VERSION) return true;  // another program was quicker
  if (version < 0 || version > INDEX_VERSION) return false;
  return std::all_of(TABLES.begin(), TABLES.end(),
                     [&](const Table& table) { return bringUpToDate(index, table); }) &&
         (version != 1 || keepNominations(index)) && keepRemovals(index) &&
         run(index, "PRAGMA application_id = " + std::to_string(INDEX_APPLICATION_ID)) &&
         run(index, "PRAGMA user_version = " + std::to_string(INDEX_VERSION));
}

}  // namespace

std::optional<std::string> obstacleToPresentTables(const Connection& index) {
  if (versionOf(index) == INDEX_VERSION) return std::nullopt;
  Transaction transaction(index);
  if (transaction && bringTablesUpToDate(index) && transaction.commit()) return std::nullopt;
  return index.lastFailure();
}

bool hasViews(const Connection& index) {
  return Statement(index, "SELECT 1 FROM sqlite_schema WHERE type = 'view'").step();
}

bool hasItsTables(const Connection& index) {
  const std::int64_t version = versionOf(index);
  if (version != INDEX_VERSION) return version >= 0 && version < INDEX_VERSION;
  return std::all_of(TABLES.begin(), TABLES.end(), [&](const Table& table) {
    const auto found = layouts(index, table);
    return found.size() == 1 && isPresent(found.front(), table);
  });
}

}  // namespace norvast::indexer
