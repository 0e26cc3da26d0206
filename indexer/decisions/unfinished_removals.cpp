#include "indexer/decisions/unfinished_removals.h"

#include <algorithm>
#include <string_view>

#include "indexer/decisions/exposure.h"
#include "indexer/decisions/path_range.h"
#include "store/statement.h"

namespace norvast::indexer {
namespace {

// Stands before the path in the name of a setting. Paths are absolute.
constexpr std::string_view REMOVING = "removing ";

std::string settingOf(const std::string& path) { return std::string(REMOVING) + path; }

bool hideUnindexed(const Connection& index, const Decisions& decisions, const std::string& path) {
  const PathRange range(path);
  Statement statement(index, std::string("SELECT path FROM mcp_exposure WHERE ") + AT_OR_BELOW,
                      std::vector{range.path, range.firstBelow, range.firstBehind});
  std::vector<std::string> hidden;
  while (statement.step()) {
    std::string file = statement.text(0);
    if (!decisions.isIndexed(file)) hidden.push_back(std::move(file));
  }
  ExposureWriter exposure(index);
  return statement.isDone() &&
         std::all_of(hidden.begin(), hidden.end(), [&exposure](const std::string& file) {
           return exposure.write(file, std::nullopt);
         });
}

}  // namespace

bool noteRemoval(const Connection& index, const std::string& path) {
  return Statement(index, "INSERT OR IGNORE INTO setting(name,value) VALUES(?,'')",
                   std::vector{settingOf(path)})
      .run();
}

bool strikeRemoval(const Connection& index, const std::string& path) {
  return Statement(index, "DELETE FROM setting WHERE name = ?", std::vector{settingOf(path)}).run();
}

std::optional<std::vector<std::string>> unfinishedRemovals(const Connection& index) {
  const PathRange all{std::string(REMOVING)};
  Statement statement(index, "SELECT name FROM setting WHERE name >= ? AND name < ?",
                      std::vector{all.firstBelow, all.firstBehind});
  std::vector<std::string> paths;
  while (statement.step()) paths.push_back(statement.text(0).substr(REMOVING.size()));
  if (!statement.isDone()) return std::nullopt;
  return paths;
}

bool hideUnfinished(const Connection& index, const Decisions& decisions) {
  const auto paths = unfinishedRemovals(index);
  return paths && std::all_of(paths->begin(), paths->end(), [&](const std::string& path) {
           return hideUnindexed(index, decisions, path);
         });
}

}  // namespace norvast::indexer
