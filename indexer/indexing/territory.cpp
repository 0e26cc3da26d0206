#include "indexer/indexing/territory.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "indexer/indexing/cache_folder.h"
#include "store/mcp_store.h"

namespace norvast::indexer {

std::optional<std::string> indexFolder() {
  const auto database = indexDatabasePath();
  if (!database) return std::nullopt;
  std::error_code failure;
  const auto folder =
      std::filesystem::canonical(std::filesystem::path(*database).parent_path(), failure);
  if (failure) return std::nullopt;
  return folder.string();
}

Territory::Territory(const Decisions& decisions, const Root& root, LeftOut& leftOut)
    : decisions_(decisions),
      root_(root),
      leftOut_(leftOut),
      exclusions_(exclusionsFor(decisions, root)),
      ownFolder_(indexFolder()) {
  if (root.gitIgnored == GitIgnored::leftOut) gitIgnores_.emplace();
}

bool Territory::enters(const std::string& folder) {
  if (folder == ownFolder_) return false;
  if (folder != root_.path && isCacheFolder(folder)) {
    leftOut_.cacheFolders.add(folder);
    return false;
  }
  if (gitIgnores_) gitIgnores_->enter(folder);
  isLeftOutHere_ = isLeftOut(folder);
  isPlain_ = !decisions_.rules.hasBelow(folder) && !decisions_.hasRootBelow(folder);
  return true;
}

bool Territory::takes(const std::string& path, std::string_view name, EntryKind kind) {
  if (isPlain_ ? isLeftOutHere_ : !isDecidedFor(path, kind)) {
    if (!decisions_.isRoot(path)) leftOut_.ruledOut.add(path);
    return false;
  }
  if (isExcluded(path, name, kind)) {
    leftOut_.excluded.add(path);
    return false;
  }
  if (gitIgnores_ && gitIgnores_->ignores(path, kind)) {
    leftOut_.gitIgnored.add(path);
    return false;
  }
  return true;
}

bool Territory::isDecidedFor(const std::string& path, EntryKind kind) const {
  if (decisions_.isRoot(path)) return false;  // it has a scan of its own
  // What is decided below a folder that is left out may take a part of it in again.
  return !isLeftOut(path) || (kind == EntryKind::folder && decisions_.rules.hasBelow(path));
}

bool Territory::isExcluded(const std::string& path, std::string_view name, EntryKind kind) {
  const auto exclusion =
      std::find_if(exclusions_.begin(), exclusions_.end(),
                   [&](const Exclusion& candidate) { return candidate.matches(path, name, kind); });
  if (exclusion == exclusions_.end()) return false;
  leftOut_.usedPatterns.insert(exclusion->pattern);
  return true;
}

bool Territory::isLeftOut(const std::string& path) const {
  const auto rule = decisions_.rules.holdingFor(path);
  return rule && rule->kind == RuleKind::leftOut;
}

}  // namespace norvast::indexer
