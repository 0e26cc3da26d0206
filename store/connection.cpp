#include "store/connection.h"

#include <sqlite3.h>

namespace norvast {
namespace {

// Of a result code; the bits above it say more than a user wants to know.
constexpr int PRIMARY_CODE = 0xFF;

// Between two looks at the clock, in instructions of SQLite's virtual machine: a few tenths of a
// millisecond, beside which the look costs nothing.
constexpr int INSTRUCTIONS_BETWEEN_LOOKS = 10'000;

}  // namespace

void useSqliteFromOneThread() { (void)sqlite3_config(SQLITE_CONFIG_SINGLETHREAD); }

void Connection::Close::operator()(sqlite3* handle) const {
  (void)sqlite3_close(
      handle);  // fails only while a statement lives, and none outlives its function
}

Connection Connection::open(const std::string& path, int flags) {
  Connection connection;
  // The number is taken before the file is opened. Should the file be replaced between the two,
  // the numbers differ and nothing is written; taken afterwards, they would agree wrongly.
  const auto before = fileNumber(path);
  sqlite3* handle = nullptr;
  const int opened = sqlite3_open_v2(path.c_str(), &handle, flags, nullptr);
  connection.end_ = std::make_unique<Clock::time_point>();
  connection.handle_.reset(handle);  // a failed open gives a handle to release, too
  if (opened != SQLITE_OK) return {};
  (void)sqlite3_busy_timeout(handle, BUSY_TIMEOUT_MILLISECONDS);  // cannot fail on an open handle
  if ((flags & SQLITE_OPEN_MEMORY) != 0) return connection;
  connection.path_ = path;
  connection.number_ = before ? before : fileNumber(path);  // the open may have created it
  return connection;
}

// Reading the schema begins a read transaction, and that opens the log where the database has one.
void Connection::openLogNow() const {
  if (!handle_) return;
  (void)sqlite3_busy_timeout(handle_.get(), 0);
  (void)sqlite3_exec(handle_.get(), "SELECT 1 FROM sqlite_schema LIMIT 1", nullptr, nullptr,
                     nullptr);
  (void)sqlite3_busy_timeout(handle_.get(), BUSY_TIMEOUT_MILLISECONDS);
}

int Connection::isLate(void* end) {
  return Clock::now() >= *static_cast<const Clock::time_point*>(end) ? 1 : 0;
}

void Connection::limitTime(std::chrono::milliseconds time) const {
  if (!handle_) return;
  *end_ = Clock::now() + time;
  sqlite3_progress_handler(handle_.get(), INSTRUCTIONS_BETWEEN_LOOKS, isLate, end_.get());
}

bool Connection::isReplaced() const {
  return handle_ && !path_.empty() && (!number_ || fileNumber(path_) != number_);
}

bool Connection::hasFailed() const {
  if (isReplaced()) return true;
  const int code = sqlite3_errcode(handle_.get()) & PRIMARY_CODE;  // without a handle: no memory
  return code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE;
}

bool Connection::isHeldElsewhere() const {
  const int code = sqlite3_errcode(handle_.get()) & PRIMARY_CODE;
  return code == SQLITE_BUSY || code == SQLITE_LOCKED;
}

std::string Connection::lastFailure() const {
  if (!handle_) return "it cannot be opened";
  if (isReplaced()) return "it was moved away or replaced meanwhile";
  if (isHeldElsewhere()) return "another program holds it";
  switch (sqlite3_errcode(handle_.get()) & PRIMARY_CODE) {
    case SQLITE_FULL:
      return "the disk is full";
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return "it is damaged";
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_CANTOPEN:
      return "it may not be written";
    case SQLITE_IOERR:
      return "the disk failed";
    case SQLITE_INTERRUPT:
      return "it takes too long to read";
    case SQLITE_NOMEM:
      return "no memory is left";
    default:
      return sqlite3_errmsg(handle_.get());
  }
}

Connection Connection::openReadOnly(const std::string& path) {
  return open(path, SQLITE_OPEN_READONLY);
}

Connection Connection::openReadWrite(const std::string& path) {
  return open(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
}

Connection Connection::openInMemory() {
  return open(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY | SQLITE_OPEN_URI);
}

}  // namespace norvast
