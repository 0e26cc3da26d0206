#include "companion/index_database.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "platform/byte_order.h"
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

// Of the header that begins each database file: its length, its first bytes, and where two numbers
// lie that the maker of the database sets, most significant byte first.
constexpr std::size_t HEADER_BYTES = 100;
constexpr std::string_view HEADER_START("SQLite format 3\0", 16);
constexpr std::size_t USER_VERSION_AT = 60;
constexpr std::size_t APPLICATION_ID_AT = 68;

bool run(const Connection& connection, const std::string& sql) {
  return Statement(connection, sql).run();
}

// The first column of the first row, or -1 when there is none.
std::int64_t number(const Connection& connection, const std::string& sql) {
  Statement statement(connection, sql);
  return statement.step() ? statement.integer(0) : -1;
}

// Before write-ahead mode, so that the main file itself says from the first byte on whose it is.
bool createTables(const Connection& connection) {
  Transaction transaction(connection);
  return transaction &&
         std::all_of(SCHEMA.begin(), SCHEMA.end(),
                     [&](const char* table) { return run(connection, table); }) &&
         run(connection, "PRAGMA application_id = " + std::to_string(INDEX_APPLICATION_ID)) &&
         run(connection, "PRAGMA user_version = " + std::to_string(INDEX_VERSION)) &&
         transaction.commit();
}

// Why the file at `path` must not be opened for writing, or an empty text. Opened with SQLite, a
// database that is not ours would already be changed: its write-ahead log would be worked off. So
// this looks at the bytes of its header (https://www.sqlite.org/fileformat.html, section 1.3).
std::string objection(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::array<char, HEADER_BYTES> header{};
  file.read(header.data(), header.size());
  if (file.gcount() == 0) return {};  // new, or left so by an interruption

  const std::string_view bytes(header.data(), header.size());
  if (!bytes.starts_with(HEADER_START)) {
    return "The index at " + path + " is no database; it is left as it is. Move it away.";
  }
  if (bigEndianAt(bytes, APPLICATION_ID_AT, 4) != INDEX_APPLICATION_ID) {
    return "The index at " + path +
           " was not made by norvast_index; it is left as it is. Use the program that made it, or "
           "move it away.";
  }
  if (bigEndianAt(bytes, USER_VERSION_AT, 4) != INDEX_VERSION) {
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
  std::filesystem::create_directories(folder, failure);
  if (failure) return "Cannot create " + folder.string() + ": " + failure.message() + ".";
  if (fileExists(*path) && !regularFileExists(*path)) return *path + " is not a file.";
  if (std::string why = objection(*path); !why.empty()) return why;

  Connection connection = Connection::openReadWrite(*path);
  if (!connection) return "Cannot open the index at " + *path + ".";

  const std::int64_t tables = number(connection, "SELECT COUNT(*) FROM sqlite_schema");
  if (tables < 0) return "The index at " + *path + " is damaged, or another program holds it.";
  if (tables == 0 && !createTables(connection)) return "Cannot write the index at " + *path + ".";
  // Both are kept as they were where they are not possible. A power cut may then lose a batch that
  // was written, never the rest.
  (void)run(connection, "PRAGMA journal_mode = WAL");
  (void)run(connection, "PRAGMA synchronous = NORMAL");
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
