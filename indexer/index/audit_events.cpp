#include "indexer/index/audit_events.h"

#include <algorithm>

#include "store/statement.h"

namespace norvast::indexer {
namespace {

std::optional<std::vector<TrailEvent>> read(Statement& statement) {
  std::vector<TrailEvent> events;
  while (statement.step()) {
    events.push_back({statement.integer(0), statement.integer(1), statement.text(2),
                      statement.text(3), statement.text(4), statement.text(5)});
  }
  if (!statement.isDone()) return std::nullopt;
  return events;
}

}  // namespace

std::optional<std::vector<TrailEvent>> lastEvents(const MCPStore& store, std::uint64_t most) {
  Statement statement(store.rdb,
                      "SELECT rowid, ts, verb, object, result, severity FROM audit_event ORDER BY "
                      "rowid DESC LIMIT ?");
  statement.bind(1, static_cast<std::int64_t>(std::min<std::uint64_t>(most, INT64_MAX)));
  auto events = read(statement);
  if (events) std::reverse(events->begin(), events->end());
  return events;
}

std::optional<std::vector<TrailEvent>> eventsAfter(const MCPStore& store, std::int64_t number) {
  Statement statement(store.rdb,
                      "SELECT rowid, ts, verb, object, result, severity FROM audit_event WHERE "
                      "rowid > ? ORDER BY rowid");
  statement.bind(1, number);
  return read(statement);
}

}  // namespace norvast::indexer
