#include "indexer/decisions/moved_rules.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "indexer/decisions/decisions.h"
#include "indexer/decisions/exposure.h"
#include "indexer/decisions/path_range.h"
#include "indexer/decisions/unfinished_removals.h"
#include "platform/file_identity.h"
#include "store/statement.h"
#include "store/transaction.h"

namespace norvast::indexer {
namespace {

std::optional<Rule> holdingAbove(const Rules& rules, const std::string& path) {
  const auto parent = parentOf(path);
  return parent ? rules.holdingFor(*parent) : std::nullopt;
}

bool isNomination(RuleKind kind) { return kind == RuleKind::content || kind == RuleKind::metadata; }

// Of what lies at the path of a rule; empty for nothing. What a link on the way leads to lies
// elsewhere.
std::string identityAt(const std::string& path) {
  if (isBehindLink(std::string(parentOf(path).value_or("/")))) return {};
  return fileIdentity(path).value_or("");
}

// Lets the rule for the path stand for what lies there now.
bool restamp(const Connection& index, const std::string& path) {
  return Statement(index, "UPDATE rule SET identity = ? WHERE path = ?",
                   std::vector{identityAt(path), path})
      .run();
}

}  // namespace

bool isDecided(const Connection& index, const std::string& path) {
  Statement statement(index, "SELECT 1 FROM rule WHERE path = ? AND identity = ?",
                      std::vector{path, fileIdentity(path).value_or("nothing there")});
  return statement.step();
}

// Rules further out come first in the order of paths, so that a rule is looked at after those
// around it.
std::vector<Rule> carriedRules(Rules rules, const std::string& from, const std::string& to) {
  std::vector<Rule> candidates = rules.below(from);
  const auto outermost = rules.holdingFor(from);
  const bool isRestricted =
      outermost && (outermost->kind == RuleKind::withheld || outermost->kind == RuleKind::metadata);
  const auto shownThere = rules.holdingFor(to);
  if (outermost && outermost->path == from) {
    candidates.insert(candidates.begin(), *outermost);
  } else if (isRestricted && shownThere && showsLess(outermost->kind, shownThere->kind)) {
    candidates.insert(candidates.begin(), {from, outermost->kind});
  }
  const bool isOutsideSame = holdingAbove(rules, from) == holdingAbove(rules, to);
  std::vector<Rule> carried;
  std::set<std::string> carriedFrom;
  for (const Rule& rule : candidates) {
    const std::string place = to + rule.path.substr(from.size());
    const auto above = holdingAbove(rules, rule.path);
    const bool isAboveSame = above && PathRange(from).contains(above->path)
                                 ? carriedFrom.contains(above->path)
                                 : isOutsideSame;
    const auto present = rules.holdingFor(place);
    const bool isOwn = present && present->path == place;
    const bool isLess = present && showsLess(present->kind, rule.kind);
    if (isNomination(rule.kind) ? !isAboveSame || (isOwn && isLess) : isLess) continue;
    carriedFrom.insert(rule.path);
    if (isOwn && present->kind == rule.kind) continue;
    carried.push_back({place, rule.kind});
    rules.set(place, rule.kind);
  }
  return carried;
}

std::optional<std::vector<MovedRule>> carryRules(const Connection& index, const std::string& from,
                                                 const std::string& to) {
  auto decisions = readDecisions(index);
  if (!decisions) return std::nullopt;
  std::vector<MovedRule> moved;
  if (isDecided(index, to)) return moved;
  for (Rule& rule : carriedRules(decisions->rules, from, to)) {
    if (!storeRule(index, rule)) return std::nullopt;
    decisions->rules.set(rule.path, rule.kind);
    moved.push_back({from + rule.path.substr(to.size()), std::move(rule)});
  }
  const bool isInLine =
      bringExposureInLine(index, decisions->rules, to) && hideUnfinished(index, *decisions);
  if (!isInLine) return std::nullopt;
  return moved;
}

void MovedRules::look() {
  missed_.clear();
  stale_.clear();
  Statement statement(index_,
                      "SELECT path, identity FROM rule WHERE kind NOT IN ('content', 'metadata')");
  while (statement.step()) {
    const std::string path = statement.text(0);
    const std::string identity = statement.text(1);
    const std::string present = identityAt(path);
    if (identity == present) continue;
    if (!present.empty()) stale_.push_back(path);
    if (!identity.empty()) missed_[identity] = path;
  }
  obstacle_ = statement.isDone() ? std::nullopt : std::optional(index_.lastFailure());
}

void MovedRules::meet(const std::string& path) {
  if (missed_.empty()) return;
  const auto identity = fileIdentity(path);
  const auto found = identity ? missed_.find(*identity) : missed_.end();
  if (found == missed_.end()) return;
  met_[found->second] = path;
  missed_.erase(found);
}

CarriedRules MovedRules::carry() {
  CarriedRules all;
  if (obstacle_) return {{}, obstacle_};
  if (met_.empty()) return all;
  Transaction transaction(index_);
  for (const auto& [from, to] : met_) {
    auto moved = transaction ? carryRules(index_, from, to) : std::nullopt;
    if (!moved || !restamp(index_, from)) return {{}, index_.lastFailure()};
    all.rules.insert(all.rules.end(), moved->begin(), moved->end());
  }
  if (!transaction.commit()) return {{}, index_.lastFailure()};
  met_.clear();
  return all;
}

void MovedRules::giveUp() {
  if (stale_.empty()) return;
  Transaction transaction(index_);
  const bool isDone =
      transaction && std::all_of(stale_.begin(), stale_.end(),
                                 [this](const std::string& path) { return restamp(index_, path); });
  if (isDone) (void)transaction.commit();  // or the next run does it
  missed_.clear();
  stale_.clear();
}

}  // namespace norvast::indexer
