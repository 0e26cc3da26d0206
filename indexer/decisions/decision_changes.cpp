#include "indexer/decisions/decision_changes.h"

#include <algorithm>
#include <utility>

#include "indexer/decisions/path_range.h"
#include "indexer/decisions/restricted_files.h"
#include "indexer/decisions/unfinished_removals.h"
#include "store/statement.h"
#include "store/transaction.h"

namespace norvast::indexer {
namespace {

// While it lives, a commit is on the disk before it returns (https://www.sqlite.org/pragma.html,
// synchronous). Rows that are made of files need not be: the next run makes them again.
class Durable {
 public:
  explicit Durable(const Connection& index) : index_(index) { set("FULL"); }
  ~Durable() { set("NORMAL"); }
  Durable(const Durable&) = delete;
  Durable& operator=(const Durable&) = delete;

 private:
  void set(const std::string& level) const {
    (void)Statement(index_, "PRAGMA synchronous = " + level)
        .run();  // the decision counts all the same
  }

  const Connection& index_;
};

// Does `change` with the decisions as they stand, which it brings up to date itself, and lets
// clients see the files at and below the path accordingly.
template <typename Change>
DecisionChange inTransaction(CurrentDecisions& current, const std::string& path, Change change) {
  const Connection& index = current.index();
  DecisionChange result;
  const Durable durable(index);
  Transaction transaction(index);
  Decisions* decisions = transaction ? current.get() : nullptr;
  if (decisions != nullptr && change(*decisions, result) &&
      bringExposureInLine(index, decisions->rules, path) &&
      bringRestrictedInLine(index, decisions->rules, path) && hideUnfinished(index, *decisions) &&
      transaction.commit()) {
    return result;
  }
  current.forget();
  return {0, {}, false, index.lastFailure()};
}

RuleKind kindOf(Nomination nomination) {
  return nomination == Nomination::content ? RuleKind::content : RuleKind::metadata;
}

// The rules of other kinds below the path: a rule never overrides them.
std::vector<StayingRules> stayingBelow(const Rules& rules, const Rule& rule) {
  const std::vector<Rule> below = rules.below(rule.path);
  std::vector<StayingRules> all;
  for (const RuleKind kind :
       {RuleKind::withheld, RuleKind::leftOut, RuleKind::metadata, RuleKind::content}) {
    StayingRules staying{kind, {}};
    for (const Rule& other : below) {
      if (other.kind == kind && kind != rule.kind) staying.paths.push_back(other.path);
    }
    if (!staying.paths.empty()) all.push_back(std::move(staying));
  }
  return all;
}

// The indexed files for which the rule at the path holds.
std::uint64_t countFollowing(const Connection& index, const Rules& rules, const std::string& path) {
  const PathRange range(path);
  Statement statement(index, "SELECT path FROM file WHERE " + PathRange::condition(),
                      range.binds());
  const bool isAlone = !rules.hasBelow(path);
  std::uint64_t number = 0;
  while (statement.step()) {
    if (isAlone || rules.holdingFor(statement.text(0))->path == path) ++number;
  }
  return number;
}

bool setRule(const Connection& index, Decisions& decisions, const Rule& rule,
             DecisionChange& result) {
  decisions.rules.set(rule.path, rule.kind);
  result.files = countFollowing(index, decisions.rules, rule.path);
  result.staying = stayingBelow(decisions.rules, rule);
  return storeRule(index, rule);
}

Root changedRoot(const Decisions& decisions, const std::string& path, const AddChoices& choices) {
  const Root* known = decisions.rootOf(path);
  Root root =
      known != nullptr && known->path == path ? *known : Root{path, GitIgnored::leftOut, {}};
  root.gitIgnored = choices.gitIgnored.value_or(root.gitIgnored);
  root.exclusions.insert(root.exclusions.end(), choices.exclusions.begin(),
                         choices.exclusions.end());
  std::erase_if(root.exclusions, [&choices](const std::string& pattern) {
    const auto& dropped = choices.noExclusions;
    return std::find(dropped.begin(), dropped.end(), pattern) != dropped.end();
  });
  return root;
}

// Drops the roots at and below the path with their rules; without any, or within a root further
// out, a rule is to say that it is left out.
bool dropWithin(const Connection& index, Decisions& decisions, const std::string& path,
                DecisionChange& result) {
  const bool hasRoots = !decisions.rootsWithin(path).empty();
  if (hasRoots) {
    auto remaining = dropRoots(index, path) ? readDecisions(index) : std::nullopt;
    if (!remaining) return false;
    decisions = std::move(*remaining);
  }
  const bool isReached = !hasRoots || decisions.rootOf(path) != nullptr;
  return !isReached || setRule(index, decisions, {path, RuleKind::leftOut}, result);
}

}  // namespace

DecisionChange addRoot(CurrentDecisions& current, const std::string& path,
                       const AddChoices& choices) {
  const Connection& index = current.index();
  return inTransaction(current, path, [&](Decisions& decisions, DecisionChange& result) {
    if (!storeRoot(index, changedRoot(decisions, path, choices))) return false;
    auto changed = readDecisions(index);
    if (!changed) return false;
    decisions = std::move(*changed);
    if (choices.nomination) {
      return setRule(index, decisions, {path, kindOf(*choices.nomination)}, result);
    }
    const auto rule = decisions.rules.holdingFor(path);
    if (!rule || rule->kind != RuleKind::leftOut) return true;
    result.isIndexedAgain = true;
    return setRule(index, decisions, {path, RuleKind::withheld}, result);
  });
}

DecisionChange decide(CurrentDecisions& current, const Rule& rule) {
  return inTransaction(current, rule.path, [&](Decisions& decisions, DecisionChange& result) {
    return setRule(current.index(), decisions, rule, result);
  });
}

DecisionChange leaveOut(CurrentDecisions& current, const std::string& path) {
  const Connection& index = current.index();
  return inTransaction(current, path, [&](Decisions& decisions, DecisionChange& result) {
    return dropWithin(index, decisions, path, result) && noteRemoval(index, path);
  });
}

DecisionChange dropDecision(CurrentDecisions& current, const std::string& path) {
  const Connection& index = current.index();
  return inTransaction(current, path, [&](Decisions& decisions, DecisionChange& result) {
    result.files = countFollowing(index, decisions.rules, path);
    decisions.rules.clear(path);
    return dropRule(index, path);
  });
}

}  // namespace norvast::indexer
