#include "store/connection.h"

#include <sqlite3.h>

namespace norvast {
namespace {

// Of a result code; the bits above it say more than a user wants to know.
constexpr int PRIMARY_CODE = 0xFF;

}  // namespace

void useSqliteFromOneThread() { (void)sqlite3_config(SQLITE_CONFIG_SINGLETHREAD); }

void Connection::Close::operator()(sqlite3* handle) const {
  (void)sqlite3_close(
      handle);  // fails only while a statement lives, and none outlives its function
}

Connection Connection::open(const std::string& path, int flags) {
  Connection connection;
  sqlite3* handle = nullptr;
  const int opened = sqlite3_open_v2(path.c_str(), &handle, flags, nullptr);
  connection.handle_.reset(handle);  // a failed open gives a handle to release, too
  if (opened != SQLITE_OK) return {};
  (void)sqlite3_busy_timeout(handle, BUSY_TIMEOUT_MILLISECONDS);  // cannot fail on an open handle
  return connection;
}

bool Connection::hasFailed() const {
  const int code = sqlite3_errcode(handle_.get()) & PRIMARY_CODE;  // without a handle: no memory
  return code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE;
}

bool Connection::isHeldElsewhere() const {
  const int code = sqlite3_errcode(handle_.get()) & PRIMARY_CODE;
  return code == SQLITE_BUSY || code == SQLITE_LOCKED;
}

std::string Connection::lastFailure() const {
  if (!handle_) return "it cannot be opened";
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
