#include "indexer/decisions/exposure.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "indexer/decisions/path_range.h"

namespace norvast::indexer {
namespace {

// As mcp_exposure.allow_content has it.
std::int64_t number(Nomination nomination) { return nomination == Nomination::content ? 1 : 0; }

struct Change {
  std::string path;
  std::optional<Nomination> nomination;
};

// The rows that are not as the rules want them. Nothing when they could not all be read.
std::optional<std::vector<Change>> changes(const Connection& index, const Rules& rules,
                                           const PathRange& range) {
  Statement statement(index,
                      "SELECT f.path, m.path IS NOT NULL, m.allow_content FROM file f LEFT JOIN "
                      "mcp_exposure m ON m.path = f.path WHERE " +
                          PathRange::condition("f.path"),
                      range.binds());
  std::vector<Change> changes;
  while (statement.step()) {
    std::string path = statement.text(0);
    const auto wanted = nominationBy(rules, path);
    const bool isExposed = statement.integer(1) != 0;
    const bool isRight = isExposed ? wanted && number(*wanted) == statement.integer(2) : !wanted;
    if (!isRight) changes.push_back({std::move(path), wanted});
  }
  if (!statement.isDone()) return std::nullopt;
  return changes;
}

}  // namespace

std::optional<Nomination> nominationBy(const Rules& rules, const std::string& path) {
  const auto rule = rules.holdingFor(path);
  if (rule && rule->kind == RuleKind::content) return Nomination::content;
  if (rule && rule->kind == RuleKind::metadata) return Nomination::metadata;
  return std::nullopt;
}

ExposureWriter::ExposureWriter(const Connection& index)
    : insert_(index, "INSERT OR REPLACE INTO mcp_exposure(path,allow_content) VALUES(?,?)"),
      remove_(index, "DELETE FROM mcp_exposure WHERE path = ?") {}

bool ExposureWriter::write(const std::string& path, std::optional<Nomination> nomination) {
  Statement& statement = nomination ? insert_ : remove_;
  statement.bind(1, path);
  if (nomination) statement.bind(2, number(*nomination));
  const bool isWritten = statement.run();
  statement.reset();
  return isWritten;
}

bool bringExposureInLine(const Connection& index, const Rules& rules, const std::string& path) {
  const auto wrong = changes(index, rules, PathRange(path));
  ExposureWriter writer(index);
  return wrong && std::all_of(wrong->begin(), wrong->end(), [&writer](const Change& change) {
           return writer.write(change.path, change.nomination);
         });
}

std::uint64_t countExposed(const Connection& index, const std::string& path) {
  const PathRange range(path);
  Statement statement(index, "SELECT COUNT(*) FROM mcp_exposure WHERE " + PathRange::condition(),
                      range.binds());
  return statement.step() ? static_cast<std::uint64_t>(statement.integer(0)) : 0;
}

}  // namespace norvast::indexer
