#include "companion/file_view.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "companion/decisions.h"
#include "companion/failures.h"
#include "companion/terminal.h"
#include "text/unicode.h"

namespace norvast {
namespace {

// Of a passage, in user-perceived characters: enough to recognise it.
constexpr std::size_t BEGINNING = 60;
constexpr std::size_t MOST_PASSAGES = 10;

std::string row(const std::string& name, const std::string& value) {
  if (value.empty()) return {};
  return name + std::string(name.size() < 12 ? 12 - name.size() : 1, ' ') + printable(value) + "\n";
}

std::string number(const std::string& digits) {
  return grouped(static_cast<std::uint64_t>(std::stoull("0" + digits)));
}

std::string withCommas(std::string lines) {
  for (std::size_t at = 0; (at = lines.find('\n', at)) != std::string::npos;)
    lines.replace(at, 1, ", ");
  return lines;
}

std::string beginning(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  const std::string_view leading = firstClusters(text, BEGINNING);
  return leading.size() == text.size() ? text : std::string(leading) + "…";
}

std::string whatClientsSee(const MCPStore& store, const std::string& path) {
  const auto rows = store.rows("SELECT allow_content FROM mcp_exposure WHERE path = ?", {path});
  if (rows.empty()) return "nothing";
  return rows[0][0] == "1" ? "name, summary and text" : "name and summary";
}

// The rule that decides what they see.
std::string ruleFor(const MCPStore& store, const std::string& path) {
  const auto decisions = readDecisions(store.rdb);
  const auto rule = decisions ? decisions->rules.holdingFor(path) : std::nullopt;
  if (!rule) return "none";
  return std::string(ruleName(rule->kind)) + ", for " +
         (rule->path == path ? "this file" : rule->path);
}

std::string passages(const MCPStore& store, const std::string& path) {
  const std::string count =
      std::to_string(store.scalar("SELECT COUNT(*) FROM chunk WHERE path = ?", {path}));
  std::string text = row("passages", number(count));
  for (const auto& passage :
       store.rows("SELECT heading, text FROM chunk WHERE path = ? ORDER BY ord "
                  "LIMIT " +
                      std::to_string(MOST_PASSAGES),
                  {path})) {
    const std::string heading = passage[0].empty() ? "" : "[" + beginning(passage[0]) + "] ";
    text += "  " + printable(heading + beginning(passage[1])) + "\n";
  }
  return text;
}

}  // namespace

std::optional<std::string> fileView(const MCPStore& store, const std::string& path) {
  const auto files = store.rows(
      "SELECT grp, size, strftime('%Y-%m-%d %H:%M', modified, 'unixepoch', 'localtime') FROM file "
      "WHERE path = ?",
      {path});
  if (files.empty()) return std::nullopt;
  std::string text = row("path", path) + row("type", files[0][0]) +
                     row("size", number(files[0][1]) + " bytes") + row("modified", files[0][2]) +
                     row("rule", ruleFor(store, path)) +
                     row("clients see", whatClientsSee(store, path));
  const auto analyses =
      store.rows("SELECT method, title, summary, entities FROM analysis WHERE path = ?", {path});
  const auto failures = failedFiles(store.rdb, path);
  if (failures && !failures->empty()) {
    text += row("no text", std::string(failureText(failures->front().reason)));
  }
  if (analyses.empty()) return text;
  const auto& analysis = analyses[0];
  return text + row("read by", analysis[0]) + row("title", analysis[1]) +
         row("summary", analysis[2]) + row("entities", withCommas(analysis[3])) +
         passages(store, path);
}

}  // namespace norvast
