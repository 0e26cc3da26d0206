#include "indexer/console/rules_view.h"

#include <algorithm>
#include <utility>

#include "indexer/console/json_output.h"
#include "indexer/console/terminal.h"

namespace norvast::indexer {
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

std::string rulesText(const DecisionsInForce& decisions) {
  std::string text;
  for (const Root& root : decisions.roots) text += rootLine(root);
  for (const RuleCount& row : decisions.counts) {
    if (row.rule || row.files > 0) text += ruleLine(row);
  }
  return text.empty() ? "nothing was decided yet\n" : text;
}

Json rulesJson(const DecisionsInForce& decisions) {
  Json::Array roots;
  for (const Root& root : decisions.roots) {
    roots.push_back(Json::Object{{"path", root.path},
                                 {"exclusions", strings(root.exclusions)},
                                 {"gitignore", root.gitIgnored == GitIgnored::leftOut}});
  }
  Json::Array rules;
  std::uint64_t withoutRule = 0;
  for (const RuleCount& row : decisions.counts) {
    if (!row.rule) {
      withoutRule = row.files;
      continue;
    }
    rules.push_back(Json::Object{
        {"path", row.rule->path}, {"kind", ruleName(row.rule->kind)}, {"files", row.files}});
  }
  return Json::Object{{"roots", std::move(roots)},
                      {"rules", std::move(rules)},
                      {"files_without_rule", withoutRule}};
}

std::string clearedText(const Connection& index, const std::string& path) {
  const auto decisions = readDecisions(index);
  const auto rule = decisions ? decisions->rules.holdingFor(path) : std::nullopt;
  const std::string shown = printable(path);
  if (!rule) return shown + ": no rule holds for it now, and AI clients do not see it";
  return shown + ": now " + std::string(ruleName(rule->kind)) + ", as " + printable(rule->path);
}

}  // namespace norvast::indexer
