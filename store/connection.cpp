#include "store/connection.h"

#include <sqlite3.h>

namespace norvast {

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

Connection Connection::openReadOnly(const std::string& path) {
  return open(path, SQLITE_OPEN_READONLY);
}

Connection Connection::openReadWrite(const std::string& path) {
  return open(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
}

}  // namespace norvast
