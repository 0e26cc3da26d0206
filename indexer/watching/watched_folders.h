// Watched folders: all folders that files are indexed from, watched before they are listed.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "indexer/decisions/decisions.h"
#include "platform/folder_watch.h"

namespace norvast::indexer {

class WatchedFolders {
 public:
  explicit WatchedFolders(FolderWatch watch) : watch_(std::move(watch)) {}

  // Watches the path and all folders below it that files are indexed from, in whatever root they
  // lie. Those that there is no room for are remembered, the outermost of them.
  void add(const Decisions& decisions, const std::string& path);

  // The same for all roots. Those that were watched before are watched no longer.
  void restart(const Decisions& decisions);

  std::vector<FolderEvent> take() { return watch_.take(); }
  const Descriptor& queue() const { return watch_.queue(); }

  // Whether changes at this root are told.
  bool isWatched(const Root& root) const;

  // To be looked through at intervals, since the system's limit of watches is reached.
  const std::set<std::string>& unwatched() const { return unwatched_; }

 private:
  FolderWatch watch_;
  std::set<std::string> unwatched_;
};

}  // namespace norvast::indexer
