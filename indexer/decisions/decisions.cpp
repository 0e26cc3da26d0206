#include "indexer/decisions/decisions.h"

#include <algorithm>
#include <utility>

#include "indexer/decisions/path_range.h"
#include "platform/file_identity.h"
#include "store/statement.h"

namespace norvast::indexer {
namespace {

bool readRoots(const Connection& index, std::vector<Root>& roots) {
  Statement statement(index, "SELECT path, gitignore FROM root ORDER BY path");
  while (statement.step()) {
    roots.push_back({statement.text(0),
                     statement.integer(1) != 0 ? GitIgnored::leftOut : GitIgnored::indexed,
                     {}});
  }
  return statement.isDone();
}

bool readExclusions(const Connection& index, std::vector<Root>& roots) {
  Statement statement(index, "SELECT root, pattern FROM exclusion ORDER BY root, pattern");
  while (statement.step()) {
    const std::string path = statement.text(0);
    const auto root = std::find_if(roots.begin(), roots.end(), [&path](const Root& candidate) {
      return candidate.path == path;
    });
    if (root != roots.end()) root->exclusions.push_back(statement.text(1));
  }
  return statement.isDone();
}

// A kind that is not known withholds.
bool readRules(const Connection& index, Rules& rules) {
  Statement statement(index, "SELECT path, kind FROM rule");
  while (statement.step()) {
    rules.set(statement.text(0), ruleNamed(statement.text(1)).value_or(RuleKind::withheld));
  }
  return statement.isDone();
}

bool run(const Connection& index, const std::string& sql, const std::vector<std::string>& binds) {
  return Statement(index, sql, binds).run();
}

// All rules in the roots of that range, and the nominations besides.
bool dropRules(const Connection& index, const std::vector<std::string>& range) {
  return run(index,
             "DELETE FROM rule WHERE " + PathRange::condition() +
                 " AND (kind IN ('content', 'metadata') OR EXISTS (SELECT 1 FROM root r WHERE "
                 "(r.path = ?1 OR (r.path >= ?2 AND r.path < ?3)) AND (rule.path = r.path OR "
                 "(rule.path >= rtrim(r.path, '/') || '/' AND "
                 "rule.path < rtrim(r.path, '/') || '0'))))",
             range);
}

}  // namespace

const Root* Decisions::rootOf(const std::string& path) const {
  for (std::optional<std::string_view> place = path; place; place = parentOf(*place)) {
    const auto root =
        std::lower_bound(roots.begin(), roots.end(), *place,
                         [](const Root& one, std::string_view other) { return one.path < other; });
    if (root != roots.end() && root->path == *place) return &*root;
  }
  return nullptr;
}

bool Decisions::isRoot(const std::string& path) const {
  const Root* root = rootOf(path);
  return root != nullptr && root->path == path;
}

bool Decisions::hasRootBelow(const std::string& path) const {
  const PathRange range(path);
  return std::any_of(roots.begin(), roots.end(), [&](const Root& root) {
    return root.path != path && range.contains(root.path);
  });
}

std::vector<Root> Decisions::rootsWithin(const std::string& path) const {
  const PathRange range(path);
  std::vector<Root> within;
  std::copy_if(roots.begin(), roots.end(), std::back_inserter(within),
               [&range](const Root& root) { return range.contains(root.path); });
  return within;
}

bool Decisions::isIndexed(const std::string& path) const {
  if (rootOf(path) == nullptr) return false;
  const auto rule = rules.holdingFor(path);
  return !rule || rule->kind != RuleKind::leftOut;
}

std::optional<Decisions> readDecisions(const Connection& index) {
  Decisions decisions;
  if (!readRoots(index, decisions.roots) || !readExclusions(index, decisions.roots) ||
      !readRules(index, decisions.rules)) {
    return std::nullopt;
  }
  return decisions;
}

Decisions* CurrentDecisions::get() {
  Statement statement(index_, "PRAGMA data_version");
  if (!statement.step()) return nullptr;
  if (!decisions_ || statement.integer(0) != version_) {
    version_ = statement.integer(0);
    decisions_ = readDecisions(index_);
  }
  return decisions_ ? &*decisions_ : nullptr;
}

bool storeRule(const Connection& index, const Rule& rule) {
  return run(index, "INSERT OR REPLACE INTO rule(path,kind,identity) VALUES(?,?,?)",
             {rule.path, std::string(ruleName(rule.kind)), fileIdentity(rule.path).value_or("")});
}

bool dropRule(const Connection& index, const std::string& path) {
  return run(index, "DELETE FROM rule WHERE path = ?", {path});
}

bool storeRoot(const Connection& index, const Root& root) {
  Statement statement(index, "INSERT OR REPLACE INTO root(path,gitignore) VALUES(?,?)");
  statement.bind(1, root.path);
  statement.bind(2, std::int64_t{root.gitIgnored == GitIgnored::leftOut ? 1 : 0});
  return statement.run() && run(index, "DELETE FROM exclusion WHERE root = ?", {root.path}) &&
         std::all_of(
             root.exclusions.begin(), root.exclusions.end(), [&](const std::string& pattern) {
               return run(index, "INSERT OR IGNORE INTO exclusion(root,pattern) VALUES(?,?)",
                          {root.path, pattern});
             });
}

bool dropRoots(const Connection& index, const std::string& path) {
  const PathRange range(path);
  const auto binds = range.binds();
  return run(index,
             "DELETE FROM exclusion WHERE root IN (SELECT path FROM root "
             "WHERE " +
                 PathRange::condition() + ")",
             binds) &&
         dropRules(index, binds) &&
         run(index, "DELETE FROM restricted_file WHERE " + PathRange::condition(), binds) &&
         run(index, "DELETE FROM root WHERE " + PathRange::condition(), binds);
}

}  // namespace norvast::indexer
