// Connection: the one owner of an open SQLite database handle.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "platform/file_identity.h"

struct sqlite3;

namespace norvast {

// How long a statement waits for another process's lock before it fails.
inline constexpr int BUSY_TIMEOUT_MILLISECONDS = 3000;

// Tells SQLite that this process uses it from one thread alone, so that it takes no locks of its
// own: a tenth of the time of a scan over vectors. Call it before the first connection is opened;
// later it has no effect.
void useSqliteFromOneThread();

// An open database, which is closed with its owner, or no connection. Every statement fails on no
// connection, and on one whose file no longer lies at the path that it was opened by.
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

  // Opens at once what SQLite opens by its path when it is first needed: the write-ahead log and
  // its shared memory. Both may be created by that; no other file changes. Does nothing, and does
  // not wait, where another program holds the database or left a change half written.
  void openLogNow() const;

  // Lets every statement fail that still runs when so much time from now has passed. A database
  // may hold a view or a trigger without an end. A wait for a lock is not counted: it has an end of
  // its own. A later call replaces the time of an earlier one.
  void limitTime(std::chrono::milliseconds time) const;

  // Returns true when another file, or none, lies at the path since the connection was opened. To
  // write then would damage the other file: its log has the same name. Costs one stat(2).
  bool isReplaced() const;

  // Returns why the last statement failed, as the end of a sentence about the index: "the disk is
  // full". Valid until the next statement; a rollback is one, too.
  std::string lastFailure() const;

  // `hasFailed` returns true when the last statement failed, `isHeldElsewhere` when it failed
  // because another program holds a lock. Valid until the next statement.
  bool hasFailed() const;
  bool isHeldElsewhere() const;

  sqlite3* handle() const { return handle_.get(); }

 private:
  struct Close {
    void operator()(sqlite3* handle) const;
  };

  using Clock = std::chrono::steady_clock;

  static Connection open(const std::string& path, int flags);
  static int isLate(void* end);  // for SQLite: other than 0 ends the statement

  // SQLite knows its address: it stays where it is when the connection is moved, and outlives the
  // handle.
  std::unique_ptr<Clock::time_point> end_;
  std::unique_ptr<sqlite3, Close> handle_;
  std::string path_;                  // empty for a database in memory
  std::optional<FileNumber> number_;  // of the file that was opened
};

}  // namespace norvast
