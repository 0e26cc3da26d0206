#include "companion/rules_view.h"

#include <algorithm>
#include <map>

#include "companion/command_output.h"
#include "companion/terminal.h"
#include "store/statement.h"

namespace norvast {
namespace {

constexpr std::size_t KIND_WIDTH = 10;
constexpr std::size_t NUMBER_WIDTH = 9;

std::string rootLine(const Root& root) {
  std::string line = std::string("indexed") + std::string(KIND_WIDTH + NUMBER_WIDTH - 5, ' ') +
                     printable(root.path);
  if (!root.exclusions.empty()) {
    line += "  without";
    for (const std::string& pattern : root.exclusions) line += " " + printable(pattern);
  }
  if (root.gitIgnored == GitIgnored::indexed) line += "  with what git ignores";
  return line + "\n";
}

std::string ruleLine(const RuleCount& row) {
  const std::string kind(row.rule ? ruleName(row.rule->kind) : "no rule");
  const std::string number =
      row.rule && row.rule->kind == RuleKind::leftOut ? "" : grouped(row.files);
  const std::size_t blanks = NUMBER_WIDTH - std::min(NUMBER_WIDTH, number.size());
  return kind + std::string(KIND_WIDTH - kind.size() + blanks, ' ') + number + "  " +
         (row.rule ? printable(row.rule->path) : "withheld, as nothing was decided") + "\n";
}

}  // namespace

std::optional<std::vector<RuleCount>> countByRule(const Connection& index, const Rules& rules) {
  std::map<std::string, std::uint64_t> numbers;
  std::uint64_t without = 0;
  Statement statement(index, "SELECT path FROM file");
  while (statement.step()) {
    const auto rule = rules.holdingFor(statement.text(0));
    ++(rule ? numbers[rule->path] : without);
  }
  if (!statement.isDone()) return std::nullopt;
  std::vector<RuleCount> counts;
  for (const Rule& rule : rules.all()) counts.push_back({rule, numbers[rule.path]});
  counts.push_back({std::nullopt, without});
  return counts;
}

std::optional<std::string> rulesText(const Connection& index) {
  const auto decisions = readDecisions(index);
  const auto counts = decisions ? countByRule(index, decisions->rules) : std::nullopt;
  if (!counts) return std::nullopt;
  std::string text;
  for (const Root& root : decisions->roots) text += rootLine(root);
  for (const RuleCount& row : *counts) {
    if (row.rule || row.files > 0) text += ruleLine(row);
  }
  return text.empty() ? "nothing was decided yet\n" : text;
}

std::string clearedText(const Connection& index, const std::string& path) {
  const auto decisions = readDecisions(index);
  const auto rule = decisions ? decisions->rules.holdingFor(path) : std::nullopt;
  const std::string shown = printable(path);
  if (!rule) return shown + ": no rule holds for it now, and AI clients do not see it";
  return shown + ": now " + std::string(ruleName(rule->kind)) + ", as " + printable(rule->path);
}

}  // namespace norvast
