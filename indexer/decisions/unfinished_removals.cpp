#include "indexer/decisions/unfinished_removals.h"

#include <algorithm>

#include "indexer/decisions/exposure.h"
#include "indexer/decisions/path_range.h"
#include "store/statement.h"

namespace norvast::indexer {
namespace {

bool hideUnindexed(const Connection& index, const Decisions& decisions, const std::string& path) {
  const PathRange range(path);
  Statement statement(index, "SELECT path FROM mcp_exposure WHERE " + PathRange::condition(),
                      range.binds());
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
  return Statement(index, "INSERT OR IGNORE INTO removal(path) VALUES(?)", std::vector{path}).run();
}

bool strikeRemoval(const Connection& index, const std::string& path) {
  return Statement(index, "DELETE FROM removal WHERE path = ?", std::vector{path}).run();
}

std::optional<std::vector<std::string>> unfinishedRemovals(const Connection& index) {
  Statement statement(index, "SELECT path FROM removal");
  std::vector<std::string> paths;
  while (statement.step()) paths.push_back(statement.text(0));
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
