#include "companion/nominations.h"

#include "companion/path_range.h"
#include "store/statement.h"
#include "store/transaction.h"

namespace norvast {
namespace {

void bindRange(Statement& statement, const PathRange& range) {
  statement.bind(1, range.path);
  statement.bind(2, range.firstBelow);
  statement.bind(3, range.firstBehind);
}

// Runs a statement over the range; how many rows it changed.
std::optional<std::uint64_t> change(const Connection& index, const std::string& sql,
                                    const PathRange& range) {
  Statement statement(index, sql + AT_OR_BELOW);
  bindRange(statement, range);
  if (!statement.run()) return std::nullopt;
  Statement changes(index, "SELECT changes()");
  return changes.step() ? static_cast<std::uint64_t>(changes.integer(0)) : 0;
}

}  // namespace

std::optional<std::uint64_t> nominate(const Connection& index, const std::string& path,
                                      Nomination nomination) {
  const char* allowed = nomination == Nomination::content ? "1" : "0";
  return change(
      index,
      std::string("INSERT OR REPLACE INTO mcp_exposure(path, allow_content) SELECT path, ") +
          allowed + " FROM file WHERE ",
      PathRange(path));
}

std::optional<std::uint64_t> withdraw(const Connection& index, const std::string& path) {
  return change(index, "DELETE FROM mcp_exposure WHERE ", PathRange(path));
}

std::optional<std::uint64_t> removeFromIndex(const Connection& index, const std::string& path) {
  const PathRange range(path);
  Transaction transaction(index);
  if (!transaction) return std::nullopt;
  for (const char* table : {"mcp_exposure", "analysis", "embedding", "chunk"}) {
    if (!change(index, std::string("DELETE FROM ") + table + " WHERE ", range)) return std::nullopt;
  }
  const auto files = change(index, "DELETE FROM file WHERE ", range);
  if (!files || !transaction.commit()) return std::nullopt;
  return files;
}

}  // namespace norvast
