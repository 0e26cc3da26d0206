#include "companion/audit_view.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <string_view>

#include "companion/terminal.h"
#include "store/statement.h"
#include "text/unicode.h"

namespace norvast {
namespace {

// Widths of the columns: the longest time, verb and result that the server writes.
constexpr std::size_t TIME_CLUSTERS = 19;
constexpr std::size_t VERB_CLUSTERS = 14;
constexpr std::size_t RESULT_CLUSTERS = 29;

std::string localTime(std::int64_t secondsSince1970) {
  const auto time = static_cast<std::time_t>(secondsSince1970);
  std::tm local{};
  std::array<char, 32> text{};
  if (localtime_r(&time, &local) == nullptr) return "?";
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local)};
}

std::string padded(std::string text, std::size_t width) {
  const std::size_t clusters = countClusters(text);
  if (clusters < width) text.append(width - clusters, ' ');
  return text;
}

Colour colourOf(std::string_view severity) {
  if (severity == "deny") return Colour::red;
  return severity == "warn" ? Colour::yellow : Colour::plain;
}

std::vector<TrailRow> read(Statement& statement) {
  std::vector<TrailRow> rows;
  while (statement.step()) {
    const std::string line = padded(localTime(statement.integer(1)), TIME_CLUSTERS) + "  " +
                             padded(printable(statement.text(2)), VERB_CLUSTERS) + "  " +
                             padded(printable(statement.text(4)), RESULT_CLUSTERS) + "  " +
                             printable(statement.text(3));
    rows.push_back({statement.integer(0), coloured(line, colourOf(statement.text(5)))});
  }
  return rows;
}

}  // namespace

std::optional<std::vector<TrailRow>> lastEvents(const MCPStore& store, std::uint64_t most) {
  Statement statement(store.rdb,
                      "SELECT rowid, ts, verb, object, result, severity FROM audit_event ORDER BY "
                      "rowid DESC LIMIT ?");
  statement.bind(1, static_cast<std::int64_t>(std::min<std::uint64_t>(most, INT64_MAX)));
  std::vector<TrailRow> rows = read(statement);
  if (!statement.isDone()) return std::nullopt;
  std::reverse(rows.begin(), rows.end());
  return rows;
}

std::vector<TrailRow> eventsAfter(const MCPStore& store, std::int64_t number) {
  Statement statement(store.rdb,
                      "SELECT rowid, ts, verb, object, result, severity FROM audit_event WHERE "
                      "rowid > ? ORDER BY rowid");
  statement.bind(1, number);
  return read(statement);
}

}  // namespace norvast
