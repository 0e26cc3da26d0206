// Connection: the one owner of an open SQLite database handle.
#pragma once

#include <memory>
#include <string>

struct sqlite3;

namespace norvast {

// How long a statement waits for another process's lock before it fails.
inline constexpr int BUSY_TIMEOUT_MILLISECONDS = 3000;

// Tells SQLite that this process uses it from one thread alone, so that it takes no locks of its
// own: a tenth of the time of a scan over vectors. Call it before the first connection is opened;
// later it has no effect.
void useSqliteFromOneThread();

// An open database, closed with its owner, or no connection: every statement on that fails.
class Connection {
 public:
  Connection() = default;

  // Opens an existing file for reading alone. No connection when it cannot be opened. That it is
  // a database is seen only by the first statement.
  static Connection openReadOnly(const std::string& path);

  // Opens a file for reading and writing; SQLite creates it when it is missing. No connection when
  // that fails.
  static Connection openReadWrite(const std::string& path);

  // A new, empty database in memory; files can be attached to it by their URIs.
  static Connection openInMemory();

  explicit operator bool() const { return handle_ != nullptr; }

  // Why the last statement on it failed, as the end of a sentence about the index: "the disk is
  // full". Only until the next statement, a rollback too.
  std::string lastFailure() const;

  // Whether it failed at all, and whether since another program holds the index. For as long.
  bool hasFailed() const;
  bool isHeldElsewhere() const;

  sqlite3* handle() const { return handle_.get(); }

 private:
  struct Close {
    void operator()(sqlite3* handle) const;
  };

  static Connection open(const std::string& path, int flags);

  std::unique_ptr<sqlite3, Close> handle_;
};

}  // namespace norvast
