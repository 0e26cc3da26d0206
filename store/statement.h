// Statement: one prepared SQL statement; the one place that prepares, binds, steps and reads.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "store/ordered_value.h"

struct sqlite3_stmt;

namespace norvast {

class Connection;

// Prepared on construction and finalized with its owner. A statement that could not be prepared
// never has a row: there is no connection, its file was replaced, a table is missing, the syntax is
// bad.
class Statement {
 public:
  Statement(const Connection& connection, const std::string& sql);

  // As above, with `binds` bound as text to the parameters 1, 2, ...
  Statement(const Connection& connection, const std::string& sql,
            std::span<const std::string> binds);

  explicit operator bool() const { return handle_ != nullptr; }

  // Fills the parameter of that index, counted from 1. A text is cut at its first NUL, as SQLite
  // takes it with a terminating one. A failure leaves the parameter NULL.
  void bind(int index, const std::string& text);
  void bind(int index, std::int64_t number);
  // The bytes need not live longer than the call.
  void bind(int index, std::span<const std::byte> blob);

  // True when there is a next row, which the readers below then see. False at the end and on every
  // failure: a busy database after the timeout, a damaged page, a statement that never was.
  bool step();

  // True when the last step found the end, and so every row was seen: no failure hid one.
  bool isDone() const { return isDone_; }

  // Runs to the end, ignoring rows. True when it got there without a failure.
  bool run();

  // Makes the statement ready to be bound and stepped anew. The old binds stay.
  void reset();

  int columnCount() const;

  // A column of the current row, counted from 0, by SQLite's own conversion. As text: UTF-8 up to
  // the first NUL, invalid sequences repaired with U+FFFD; NULL is the empty text.
  std::string text(int column) const;
  // The same into memory that is already there, for rows by the hundred thousand.
  void text(int column, std::string& into) const;
  // The bytes up to the first NUL as LIKE compares them: SQLite's, invalid ones too, and valid
  // until the next step. Empty for NULL, and for a blob where LIKE matches none.
  std::string_view likeText(int column) const;
  // The value in its place among others.
  OrderedValue ordered(int column) const;
  // NULL is 0.
  std::int64_t integer(int column) const;
  // The bytes are SQLite's and valid until the next step. Empty for NULL.
  std::span<const std::byte> blob(int column) const;

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* handle) const;
  };

  std::unique_ptr<sqlite3_stmt, Finalize> handle_;
  bool isDone_ = false;
};

}  // namespace norvast
