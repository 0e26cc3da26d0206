#include "indexer/decisions/restricted_files.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "indexer/decisions/exposure.h"
#include "indexer/decisions/path_range.h"
#include "platform/file_identity.h"
#include "store/transaction.h"

namespace norvast::indexer {
namespace {

bool isFile(const std::string& path) {
  std::error_code missing;
  return std::filesystem::is_regular_file(std::filesystem::symlink_status(path, missing));
}

// The restriction that holds for the file, if one does. What a folder is left out with is not
// indexed and follows the folder that it is moved to; a file that was left out by name does not.
std::optional<RuleKind> restrictionOf(const Rules& rules, const std::string& path) {
  const auto rule = rules.holdingFor(path);
  if (!rule || !isRestriction(rule->kind)) return std::nullopt;
  if (rule->kind == RuleKind::leftOut && rule->path != path) return std::nullopt;
  return rule->kind;
}

struct Known {
  std::string path;
  RuleKind kind;
};

std::optional<Known> knownBy(Statement& select, const std::string& identity) {
  select.bind(1, identity);
  std::optional<Known> known;
  if (select.step()) {
    known = {select.text(0), ruleNamed(select.text(1)).value_or(RuleKind::withheld)};
  }
  select.reset();
  return known;
}

// The indexed files at and below the path for which the condition holds as well.
std::optional<std::vector<std::string>> indexedFiles(const Connection& index,
                                                     const std::string& path,
                                                     const char* condition = "") {
  const PathRange range(path);
  Statement statement(index, "SELECT path FROM file WHERE " + PathRange::condition() + condition,
                      range.binds());
  std::vector<std::string> files;
  while (statement.step()) files.push_back(statement.text(0));
  if (!statement.isDone()) return std::nullopt;
  return files;
}

std::vector<std::string> texts(const Connection& index, const std::string& sql,
                               const std::vector<std::string>& binds) {
  Statement statement(index, sql, binds);
  std::vector<std::string> all;
  while (statement.step()) all.push_back(statement.text(0));
  return all;
}

// A folder that was restricted by its own rule and is shown more of under another name: the
// decision is about all that was restricted by that rule alone.
bool forgetUnderFormerNames(const Connection& index, const Rules& rules, const std::string& path) {
  const auto identity = fileIdentity(path);
  const auto present = rules.holdingFor(path);
  if (!identity || !present) return true;
  for (const std::string& former :
       texts(index, "SELECT path FROM rule WHERE identity = ? AND path <> ?", {*identity, path})) {
    const auto before = rules.at(former);
    if (!before || !showsLess(*before, present->kind)) continue;
    const PathRange range(former);
    for (const std::string& file :
         texts(index, "SELECT DISTINCT path FROM restricted_file WHERE " + PathRange::condition(),
               range.binds())) {
      const auto rule = rules.holdingFor(file);
      if (!rule || rule->path != former) continue;
      const std::vector binds{file};
      if (!Statement(index, "DELETE FROM restricted_file WHERE path = ?", binds).run())
        return false;
    }
  }
  return true;
}

// Notes those of the files that are restricted, in a transaction of its own.
bool noteFiles(const Connection& index, const Rules& rules, std::vector<std::string> files) {
  std::erase_if(files, [&rules](const std::string& file) { return !restrictionOf(rules, file); });
  if (files.empty()) return true;
  Transaction transaction(index);
  RestrictedFiles restricted(index);
  return transaction &&
         std::all_of(files.begin(), files.end(),
                     [&](const std::string& file) { return restricted.noteSeen(rules, file); }) &&
         transaction.commit();
}

// True if the file would be shown more of at its path than the kind shows.
bool wouldShowMore(const Rules& rules, const std::string& path, RuleKind kind) {
  const auto rule = rules.holdingFor(path);
  if (kind == RuleKind::leftOut) return !rule || rule->kind != RuleKind::leftOut;
  return rule && showsLess(kind, rule->kind);
}

}  // namespace

bool isRestriction(RuleKind kind) { return kind != RuleKind::content; }

RestrictedFiles::RestrictedFiles(const Connection& index)
    : insert_(index, "INSERT OR REPLACE INTO restricted_file(identity,path,kind) VALUES(?,?,?)"),
      remove_(index, "DELETE FROM restricted_file WHERE identity = ?") {}

bool RestrictedFiles::noteSeen(const Rules& rules, const std::string& path) {
  const auto kind = restrictionOf(rules, path);
  const auto identity = kind ? fileIdentity(path) : std::nullopt;
  if (!identity) return true;
  insert_.bind(1, *identity);
  insert_.bind(2, path);
  insert_.bind(3, std::string(ruleName(*kind)));
  const bool isNoted = insert_.run();
  insert_.reset();
  return isNoted;
}

bool RestrictedFiles::forget(const std::string& path) {
  const auto identity = fileIdentity(path);
  if (!identity) return true;
  remove_.bind(1, *identity);
  const bool isForgotten = remove_.run();
  remove_.reset();
  return isForgotten;
}

bool bringRestrictedInLine(const Connection& index, const Rules& rules, const std::string& path) {
  auto files = indexedFiles(index, path);
  if (!files || !forgetUnderFormerNames(index, rules, path)) return false;
  if (isFile(path)) files->push_back(path);  // it may be left out, or not indexed yet
  RestrictedFiles restricted(index);
  return std::all_of(files->begin(), files->end(), [&](const std::string& file) {
    return restrictionOf(rules, file) ? restricted.noteSeen(rules, file) : restricted.forget(file);
  });
}

bool noteAllRestricted(const Connection& index, const Rules& rules, const std::string& path) {
  auto files = indexedFiles(index, path, " AND path NOT IN (SELECT r.path FROM restricted_file r)");
  if (!files) return false;
  for (const Rule& rule : rules.below(path)) {
    if (rule.kind == RuleKind::leftOut && isFile(rule.path)) files->push_back(rule.path);
  }
  return noteFiles(index, rules, std::move(*files));
}

bool noteLeftOut(const Connection& index, const Rules& rules, const std::string& path) {
  if (rules.at(path) != RuleKind::leftOut || !isFile(path)) return true;
  return noteFiles(index, rules, {path});
}

CarriedRules restrictAgain(const Connection& index, const std::vector<std::string>& files) {
  CarriedRules carried;
  auto decisions = readDecisions(index);
  if (!decisions) return {{}, index.lastFailure()};
  Statement select(index, "SELECT path, kind FROM restricted_file WHERE identity = ?");
  for (const std::string& file : files) {
    const auto identity = fileIdentity(file);
    auto known = identity ? knownBy(select, *identity) : std::nullopt;
    if (!known || known->path == file || isDecided(index, file)) continue;
    if (!wouldShowMore(decisions->rules, file, known->kind)) continue;
    carried.rules.push_back({std::move(known->path), {file, known->kind}});
  }
  if (carried.rules.empty()) return carried;
  Transaction transaction(index);
  for (const MovedRule& moved : carried.rules) {
    decisions->rules.set(moved.rule.path, moved.rule.kind);
    const bool isDone = transaction && storeRule(index, moved.rule) &&
                        bringExposureInLine(index, decisions->rules, moved.rule.path);
    if (!isDone) return {{}, index.lastFailure()};
  }
  if (!transaction.commit()) return {{}, index.lastFailure()};
  return carried;
}

}  // namespace norvast::indexer
