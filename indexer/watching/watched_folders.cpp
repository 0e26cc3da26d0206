#include "indexer/watching/watched_folders.h"

#include <filesystem>
#include <system_error>

#include "indexer/indexing/territory.h"

namespace norvast::indexer {
namespace {

// Goes where the indexing goes, and watches each folder as it is entered.
class WatchingTerritory final : public Territory {
 public:
  WatchingTerritory(const Decisions& decisions, const Root& root, LeftOut& leftOut,
                    FolderWatch& watch, std::set<std::string>& unwatched)
      : Territory(decisions, root, leftOut), watch_(watch), unwatched_(unwatched) {}

  bool enters(const std::string& folder) override {
    if (!Territory::enters(folder)) return false;
    const WatchOutcome outcome = watch_.add(folder);
    if (outcome == WatchOutcome::noRoom) unwatched_.insert(folder);
    return outcome == WatchOutcome::watched;
  }

 private:
  FolderWatch& watch_;
  std::set<std::string>& unwatched_;
};

// The folder that tells of a root: the one that holds it when it is a file.
std::string tellingFolder(const Root& root) {
  std::error_code missing;
  const bool isFile = std::filesystem::is_regular_file(root.path, missing);
  return isFile ? std::string(parentOf(root.path).value_or("/")) : root.path;
}

}  // namespace

void WatchedFolders::add(const Decisions& decisions, const std::string& path) {
  ScanReport report;  // the indexing that follows tells what cannot be read or is left out
  LeftOut leftOut;
  const auto watchFrom = [&](const Root& root, const std::string& start) {
    if (const std::string folder = tellingFolder(root); folder != root.path) {
      if (watch_.add(folder) == WatchOutcome::noRoom) unwatched_.insert(root.path);
    }
    WatchingTerritory territory(decisions, root, leftOut, watch_, unwatched_);
    scanFiles(
        root.path, start, territory, [](const ScannedFile&) {}, report);
  };
  if (const Root* outer = decisions.rootOf(path)) watchFrom(*outer, path);
  for (const Root& root : decisions.rootsWithin(path)) {
    if (root.path != path) watchFrom(root, root.path);
  }
}

void WatchedFolders::restart(const Decisions& decisions) {
  if (auto fresh = FolderWatch::open()) watch_ = std::move(*fresh);
  unwatched_.clear();
  for (const Root& root : decisions.roots) add(decisions, root.path);
}

bool WatchedFolders::isWatched(const Root& root) const {
  return watch_.isWatched(tellingFolder(root));
}

}  // namespace norvast::indexer
