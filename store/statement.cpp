#include "store/statement.h"

#include <sqlite3.h>

#include <utility>

#include "store/connection.h"
#include "text/utf8.h"

namespace norvast {
namespace {

// Both lengths run to the terminating NUL.
constexpr int TO_NUL = -1;

}  // namespace

void Statement::Finalize::operator()(sqlite3_stmt* handle) const {
  (void)sqlite3_finalize(handle);  // repeats the last step's failure, which was met there
}

Statement::Statement(const Connection& connection, const std::string& sql)
    : Statement(connection, sql, {}) {}

Statement::Statement(const Connection& connection, const std::string& sql,
                     std::span<const std::string> binds) {
  // Before anything is read: SQLite looks for its log by the path, and would find another one's.
  if (!connection || connection.isReplaced()) return;
  sqlite3_stmt* handle = nullptr;
  if (sqlite3_prepare_v2(connection.handle(), sql.c_str(), TO_NUL, &handle, nullptr) != SQLITE_OK) {
    return;
  }
  handle_.reset(handle);
  int index = 1;
  for (const std::string& text : binds) bind(index++, text);
}

void Statement::bind(int index, const std::string& text) {
  if (!handle_) return;
  (void)sqlite3_bind_text(handle_.get(), index, text.c_str(), TO_NUL, SQLITE_TRANSIENT);
}

void Statement::bind(int index, std::int64_t number) {
  if (!handle_) return;
  (void)sqlite3_bind_int64(handle_.get(), index, number);
}

void Statement::bind(int index, std::span<const std::byte> blob) {
  if (!handle_) return;
  (void)sqlite3_bind_blob64(handle_.get(), index, blob.data(), blob.size(), SQLITE_TRANSIENT);
}

bool Statement::step() {
  if (!handle_) return false;
  const int result = sqlite3_step(handle_.get());
  isDone_ = result == SQLITE_DONE;
  return result == SQLITE_ROW;
}

bool Statement::run() {
  if (!handle_) return false;
  int result = SQLITE_ROW;
  while (result == SQLITE_ROW) result = sqlite3_step(handle_.get());
  return result == SQLITE_DONE;
}

void Statement::reset() {
  if (handle_) (void)sqlite3_reset(handle_.get());  // repeats the last step's failure
}

int Statement::columnCount() const { return sqlite3_column_count(handle_.get()); }

std::string Statement::text(int column) const {
  std::string value;
  text(column, value);
  return value;
}

void Statement::text(int column, std::string& into) const {
  const unsigned char* bytes = sqlite3_column_text(handle_.get(), column);
  into.assign(bytes == nullptr ? "" : reinterpret_cast<const char*>(bytes));
  if (validUtf8Length(into) < into.size()) into = repairUtf8(std::move(into));
}

std::string_view Statement::likeText(int column) const {
  static const bool MATCHES_BLOBS = sqlite3_compileoption_used("LIKE_DOESNT_MATCH_BLOBS") == 0;
  if (!MATCHES_BLOBS && sqlite3_column_type(handle_.get(), column) == SQLITE_BLOB) return {};
  const unsigned char* bytes = sqlite3_column_text(handle_.get(), column);
  return bytes == nullptr ? std::string_view() : reinterpret_cast<const char*>(bytes);
}

OrderedValue Statement::ordered(int column) const {
  const auto bytes = [&] {
    const std::span<const std::byte> value = blob(column);
    return std::string(reinterpret_cast<const char*>(value.data()), value.size());
  };
  switch (sqlite3_column_type(handle_.get(), column)) {
    case SQLITE_INTEGER:
      return static_cast<long double>(integer(column));
    case SQLITE_FLOAT:
      return static_cast<long double>(sqlite3_column_double(handle_.get(), column));
    case SQLITE_TEXT:
      return bytes();
    case SQLITE_BLOB:
      return OrderedBlob{bytes()};
    default:
      return std::monostate();
  }
}

std::int64_t Statement::integer(int column) const {
  return sqlite3_column_int64(handle_.get(), column);
}

std::span<const std::byte> Statement::blob(int column) const {
  // In this order: of a text in a UTF-16 database, the length is that of its UTF-8.
  const int length = sqlite3_column_bytes(handle_.get(), column);
  const void* bytes = sqlite3_column_blob(handle_.get(), column);
  if (bytes == nullptr || length < 1) return {};
  return {static_cast<const std::byte*>(bytes), static_cast<std::size_t>(length)};
}

}  // namespace norvast
