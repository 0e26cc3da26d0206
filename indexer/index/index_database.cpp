#include "indexer/index/index_database.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "indexer/index/index_schema.h"
#include "platform/byte_order.h"
#include "platform/descriptor.h"
#include "platform/folders.h"
#include "store/mcp_store.h"
#include "store/statement.h"

namespace norvast::indexer {
namespace {

// Of the header that begins each database file: its length, its first bytes, and where numbers lie,
// most significant byte first; the last two are set by the maker of the database.
constexpr std::size_t HEADER_BYTES = 100;
constexpr std::string_view HEADER_START("SQLite format 3\0", 16);
constexpr std::size_t WRITE_VERSION_AT = 18;  // 1 without a write-ahead log
constexpr std::size_t SCHEMA_COOKIE_AT = 40;  // 0 as long as no table was made
constexpr std::size_t USER_VERSION_AT = 60;
constexpr std::size_t APPLICATION_ID_AT = 68;

// A passage with its vector takes about 2,700 bytes. At SQLite's own 4,096, one would fill a page.
constexpr int PAGE_BYTES = 16'384;

bool run(const Connection& connection, const std::string& sql) {
  return Statement(connection, sql).run();
}

bool isEmpty(const Connection& connection) {
  Statement statement(connection, "SELECT COUNT(*) FROM sqlite_schema");
  return statement.step() && statement.integer(0) == 0;
}

// As another run leaves it for a moment that is about to make the tables.
bool isNobodys(std::string_view header) {
  return bigEndianAt(header, WRITE_VERSION_AT, 1) == 1 &&
         bigEndianAt(header, SCHEMA_COOKIE_AT, 4) == 0 &&
         bigEndianAt(header, APPLICATION_ID_AT, 4) == 0;
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
  if (isNobodys(bytes)) return {};
  if (bigEndianAt(bytes, APPLICATION_ID_AT, 4) != INDEX_APPLICATION_ID) {
    return "The index at " + path +
           " was not made by norvast_index; it is left as it is. Use the program that made it, or "
           "move it away.";
  }
  if (bigEndianAt(bytes, USER_VERSION_AT, 4) > INDEX_VERSION) {
    return "The index at " + path +
           " is of a newer version of norvast_index; it is left as it is. Use that one.";
  }
  return {};
}

// Keeps other runs from making the index at the same time, until the descriptor is closed. Where
// the folder cannot be locked (some network file systems), nothing is locked.
Descriptor lockOf(const std::filesystem::path& folder) {
  Descriptor place(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (place) (void)flock(place.number(), LOCK_EX);
  return place;
}

// An index that was moved away alone leaves its shared memory behind, which a running server may
// still hold. SQLite would take it for that of the new index and read the old one's pages. The log
// itself is removed by SQLite where it makes a new database.
void dropOrphanedLog(const std::string& path) { (void)unlink((path + "-shm").c_str()); }

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

  const Descriptor making = lockOf(folder);
  if (!fileExists(*path)) dropOrphanedLog(*path);
  Connection connection = Connection::openReadWrite(*path);
  if (!connection) return "Cannot open the index at " + *path + ".";

  // Only before the first table is there: rows with vectors fit several to a page, and space that
  // is freed can be given back to the disk.
  if (isEmpty(connection)) {
    (void)run(connection, "PRAGMA page_size = " + std::to_string(PAGE_BYTES));
    (void)run(connection, "PRAGMA auto_vacuum = INCREMENTAL");
  }
  // Before write-ahead mode, so that the main file itself says from the first byte on whose it is.
  if (const auto obstacle = obstacleToPresentTables(connection)) {
    return "The index at " + *path + " cannot be written: " + *obstacle + ".";
  }
  if (hasViews(connection)) {
    return "The index at " + *path +
           " holds views, which norvast_index does not make; it is left as it is. Move it away.";
  }
  // Both are kept as they were where they are not possible. A power cut may then lose a batch that
  // was written, never the rest.
  (void)run(connection, "PRAGMA journal_mode = WAL");
  (void)run(connection, "PRAGMA synchronous = NORMAL");
  return connection;
}

std::optional<std::string> objectionToIndex() {
  const auto path = indexDatabasePath();
  std::string why = path ? objection(*path) : std::string();
  if (why.empty()) return std::nullopt;
  return why;
}

}  // namespace norvast::indexer
