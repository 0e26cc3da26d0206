#include "companion/index_database.h"

#include <sys/stat.h>

#include <array>
#include <filesystem>
#include <system_error>

#include "platform/folders.h"
#include "store/mcp_store.h"
#include "store/statement.h"

namespace norvast {
namespace {

// All tables are joined on `path`, the absolute path of the file. `nanoseconds` completes
// `modified`, so that a change within the same second is seen; it is -1 for a file that could not
// be read.
constexpr std::array SCHEMA = {
    "CREATE TABLE file(path TEXT PRIMARY KEY NOT NULL, name TEXT NOT NULL, ext TEXT NOT NULL, "
    "grp TEXT NOT NULL, size INTEGER NOT NULL, modified INTEGER NOT NULL, nanoseconds INTEGER NOT "
    "NULL) WITHOUT ROWID",
    "CREATE TABLE mcp_exposure(path TEXT PRIMARY KEY NOT NULL, allow_content INTEGER NOT NULL) "
    "WITHOUT ROWID",
    "CREATE TABLE analysis(path TEXT PRIMARY KEY NOT NULL, summary TEXT, entities TEXT, method "
    "TEXT)",
    "CREATE TABLE embedding(path TEXT PRIMARY KEY NOT NULL, vec BLOB NOT NULL)",
    "CREATE TABLE chunk(path TEXT NOT NULL, ord INTEGER NOT NULL, text TEXT NOT NULL, vec BLOB NOT "
    "NULL, PRIMARY KEY(path, ord))",
    "CREATE TABLE audit_event(id INTEGER PRIMARY KEY, ts INTEGER NOT NULL, verb TEXT NOT NULL, "
    "object TEXT NOT NULL, result TEXT NOT NULL, severity TEXT NOT NULL)",
};

bool run(const Connection& connection, const std::string& sql) {
  return Statement(connection, sql).run();
}

// The first column of the first row, or -1 when there is none.
std::int64_t number(const Connection& connection, const std::string& sql) {
  Statement statement(connection, sql);
  return statement.step() ? statement.integer(0) : -1;
}

bool createTables(const Connection& connection) {
  Transaction transaction(connection);
  for (const char* table : SCHEMA) {
    if (!run(connection, table)) return false;
  }
  return run(connection, "PRAGMA application_id = " + std::to_string(INDEX_APPLICATION_ID)) &&
         run(connection, "PRAGMA user_version = " + std::to_string(INDEX_VERSION)) &&
         transaction.commit();
}

// Why the tables that are there are none of ours, or an empty text.
std::string objection(const Connection& connection, const std::string& path) {
  if (number(connection, "PRAGMA application_id") != INDEX_APPLICATION_ID) {
    return "The index at " + path +
           " was not made by norvast_index; it is left as it is. Use the program that made it, or "
           "move it away.";
  }
  if (number(connection, "PRAGMA user_version") != INDEX_VERSION) {
    return "The index at " + path +
           " is of another version of norvast_index; it is left as it is. Move it away and index "
           "anew.";
  }
  return {};
}

}  // namespace

std::variant<Connection, std::string> openIndex() {
  const auto path = indexDatabasePath();
  if (!path) return "There is no home folder to keep the index in; set HOME.";

  std::error_code failure;
  const std::filesystem::path folder = std::filesystem::path(*path).parent_path();
  const bool isNewFolder = std::filesystem::create_directories(folder, failure);
  if (failure) return "Cannot create " + folder.string() + ": " + failure.message() + ".";
  if (isNewFolder) (void)chmod(folder.c_str(), S_IRWXU);
  if (fileExists(*path) && !regularFileExists(*path)) return *path + " is not a file.";

  const mode_t before = umask(S_IRWXG | S_IRWXO);
  Connection connection = Connection::openReadWrite(*path);
  (void)umask(before);
  if (!connection) return "Cannot open the index at " + *path + ".";

  const std::int64_t tables = number(connection, "SELECT COUNT(*) FROM sqlite_schema");
  if (tables < 0) return "The index at " + *path + " is no database, or another program holds it.";
  if (tables == 0 && number(connection, "PRAGMA application_id") == 0) {
    if (!run(connection, "PRAGMA journal_mode = WAL") || !createTables(connection)) {
      return "Cannot write the index at " + *path + ".";
    }
  }
  if (std::string why = objection(connection, *path); !why.empty()) return why;
  (void)run(connection,
            "PRAGMA journal_mode = WAL");  // as it was made; kept when that is not possible
  (void)run(connection,
            "PRAGMA synchronous = NORMAL");  // a power cut may lose a batch, never the rest
  return connection;
}

Transaction::Transaction(const Connection& connection)
    : connection_(connection), isOpen_(run(connection, "BEGIN IMMEDIATE")) {}

Transaction::~Transaction() {
  if (isOpen_) (void)run(connection_, "ROLLBACK");
}

bool Transaction::commit() {
  if (!isOpen_ || !run(connection_, "COMMIT")) return false;
  isOpen_ = false;
  return true;
}

}  // namespace norvast
