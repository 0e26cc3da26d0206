// The commands that decide: nominate, withdraw, remove, rules.
#include <filesystem>
#include <functional>
#include <iostream>
#include <system_error>
#include <variant>

#include "indexer/commands/commands.h"
#include "indexer/console/command_output.h"
#include "indexer/console/decision_text.h"
#include "indexer/console/json_output.h"
#include "indexer/console/rules_view.h"
#include "indexer/console/terminal.h"
#include "indexer/decisions/decision_changes.h"
#include "indexer/decisions/path_range.h"
#include "indexer/index/free_space.h"
#include "indexer/indexing/index_files.h"
#include "store/statement.h"

namespace norvast::indexer {
namespace {

// Whether there is anything to decide about: a typing error must not pass for a decision.
bool isKnown(const Connection& index, const Decisions& decisions, const std::string& path) {
  std::error_code failure;
  const auto type = std::filesystem::symlink_status(path, failure).type();
  return type != std::filesystem::file_type::not_found || decisions.rules.at(path) ||
         !decisions.rootsWithin(path).empty() || hasIndexedFile(index, path);
}

// What was done, or why nothing could be seen of it yet.
std::string outcome(const DecisionChange& change, bool wasInRoot, const std::string& done,
                    const std::string& path) {
  const std::string shown = printable(path);
  if (change.files > 0) return done + " " + count(change.files, "file") + ": " + shown;
  if (!wasInRoot) {
    return shown + ": in no indexed folder; the rule is kept for when it is: norvast_index add";
  }
  return shown + ": no indexed file follows the rule yet; it is kept";
}

using Change = std::function<DecisionChange(CurrentDecisions&, const std::string&)>;

// Does `change` for each path and says what came of it. A path that is nowhere is passed over.
ExitStatus changeEach(const std::vector<std::string>& paths, const char* done,
                      const Change& change) {
  const auto opened = existingIndex();
  if (const auto* why = std::get_if<std::string>(&opened)) return fail(*why);
  const auto& index = std::get<Connection>(opened);
  CurrentDecisions current(index);
  ExitStatus status = ExitStatus::done;
  for (const std::string& path : paths) {
    const auto place = indexedPath(path);
    const Decisions* decisions = current.get();
    if (decisions == nullptr) return failToWrite(index.lastFailure());
    if (!place || !isKnown(index, *decisions, *place)) {
      status = fail(path + ": no such file or folder, neither on disk nor in the index");
      continue;
    }
    const bool wasInRoot = decisions->rootOf(*place) != nullptr;
    const DecisionChange changed = change(current, *place);
    if (changed.obstacle) return failToWrite(*changed.obstacle);
    std::cout << outcome(changed, wasInRoot, done, *place) << "\n"
              << changeRemarks(changed, *place);
  }
  return status;
}

}  // namespace

bool hasIndexedFile(const Connection& index, const std::string& path) {
  const PathRange range(path);
  return Statement(index, "SELECT 1 FROM file WHERE " + PathRange::condition() + " LIMIT 1",
                   range.binds())
      .step();
}

ExitStatus nominateCommand(const std::vector<std::string>& paths, Nomination nomination) {
  const RuleKind kind = nomination == Nomination::content ? RuleKind::content : RuleKind::metadata;
  return changeEach(paths, "nominated", [kind](CurrentDecisions& current, const std::string& path) {
    return decide(current, {path, kind});
  });
}

ExitStatus withdrawCommand(const std::vector<std::string>& paths) {
  return changeEach(paths, "withdrawn", [](CurrentDecisions& current, const std::string& path) {
    return decide(current, {path, RuleKind::withheld});
  });
}

ExitStatus removeCommand(const std::vector<std::string>& paths) {
  return changeEach(paths, "removed", [](CurrentDecisions& current, const std::string& path) {
    const Connection& index = current.index();
    DecisionChange change = leaveOut(current, path);
    if (change.obstacle) return change;
    const IndexingReport report = removeUnindexed(index, path);
    change.files = report.removed;
    change.obstacle = report.obstacle;
    giveBackSpace(index);
    return change;
  });
}

ExitStatus rulesCommand(Form form) {
  const auto opened = existingIndex();
  if (const auto* why = std::get_if<std::string>(&opened)) return fail(*why);
  const auto& index = std::get<Connection>(opened);
  const auto decisions = decisionsInForce(index);
  if (!decisions) return failToRead(index);
  std::cout << (form == Form::json ? jsonText(rulesJson(*decisions)) : rulesText(*decisions));
  return ExitStatus::done;
}

ExitStatus clearRulesCommand(const std::vector<std::string>& paths) {
  const auto opened = existingIndex();
  if (const auto* why = std::get_if<std::string>(&opened)) return fail(*why);
  const auto& index = std::get<Connection>(opened);
  CurrentDecisions current(index);
  ExitStatus status = ExitStatus::done;
  for (const std::string& path : paths) {
    const auto place = indexedPath(path);
    const Decisions* decisions = current.get();
    if (decisions == nullptr) return failToWrite(index.lastFailure());
    if (!place || !decisions->rules.at(*place)) {
      status = fail(path + ": there is no rule for it; see norvast_index rules");
      continue;
    }
    const DecisionChange change = dropDecision(current, *place);
    if (change.obstacle) return failToWrite(*change.obstacle);
    std::cout << clearedText(index, *place) << "\n";
  }
  return status;
}

}  // namespace norvast::indexer
