#include "indexer/indexing/known_files.h"

#include <algorithm>
#include <utility>

#include "indexer/decisions/path_range.h"
#include "store/statement.h"

namespace norvast::indexer {

std::vector<RootPlace> placesWithin(const Decisions& decisions, const std::string& path) {
  std::vector<RootPlace> places;
  const Root* outer = decisions.rootOf(path);
  if (outer != nullptr) places.push_back({outer->path, path});
  for (const Root& root : decisions.rootsWithin(path)) {
    if (root.path != path) places.push_back({root.path, root.path});
  }
  return places;
}

bool KnownFiles::KnownFile::isSame(const ScannedFile& file) const {
  return sizeBytes == file.sizeBytes && modified == file.modified &&
         nanoseconds == file.nanoseconds;
}

bool KnownFiles::read(const Connection& index, const Decisions& decisions, const RootPlace& place) {
  files_.clear();
  const bool isAlone = placesWithin(decisions, place.start).size() == 1;
  const PathRange range(place.start);
  Statement statement(
      index, "SELECT path, size, modified, nanoseconds FROM file WHERE " + PathRange::condition(),
      range.binds());
  while (statement.step()) {
    std::string path = statement.text(0);
    if (!isAlone && decisions.rootOf(path)->path != place.root) continue;
    files_[std::move(path)] = {statement.integer(1), statement.integer(2), statement.integer(3),
                               std::nullopt};
  }
  auto failed = failedFiles(index, place.start);
  if (!statement.isDone() || !failed) return false;
  for (FailedFile& file : *failed) {
    const auto known = files_.find(file.path);
    if (known != files_.end()) known->second.failure = std::move(file);
  }
  return true;
}

FileChange KnownFiles::meet(const ScannedFile& file) {
  const auto known = files_.find(file.path);
  if (known == files_.end()) return FileChange::isNew;
  known->second.isThere = true;
  if (!known->second.isSame(file)) return FileChange::content;
  const auto& failure = known->second.failure;
  return failure && isTriedAgain(*failure) ? FileChange::failedBefore : FileChange::none;
}

void KnownFiles::lose(const std::string& path) {
  const auto known = files_.find(path);
  if (known != files_.end()) known->second.isThere = false;
}

bool KnownFiles::isStillSo(const ScannedFile& file, const FailedFile& failed) const {
  const auto known = files_.find(file.path);
  if (known == files_.end() || !known->second.isSame(file)) return false;
  const auto& failure = known->second.failure;
  return failure && failure->reason == failed.reason && failure->reader == failed.reader;
}

std::vector<std::string> KnownFiles::vanished(
    std::span<const std::string> unreadableFolders) const {
  const std::vector<PathRange> hidden(unreadableFolders.begin(), unreadableFolders.end());
  std::vector<std::string> vanished;
  for (const auto& [path, known] : files_) {
    const bool isHidden = !known.isThere && std::any_of(hidden.begin(), hidden.end(),
                                                        [&path = path](const PathRange& folder) {
                                                          return folder.contains(path);
                                                        });
    if (!known.isThere && !isHidden) vanished.push_back(path);
  }
  std::sort(vanished.begin(), vanished.end());  // neighbours lie on the same pages
  return vanished;
}

}  // namespace norvast::indexer
