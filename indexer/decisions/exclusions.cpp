#include "indexer/decisions/exclusions.h"

#include <fnmatch.h>

#include <algorithm>

#include "indexer/decisions/path_range.h"

namespace norvast::indexer {

bool Exclusion::matches(std::string_view path, std::string_view name, EntryKind kind) const {
  std::string_view wanted = pattern;
  if (wanted.ends_with('/')) {
    if (kind != EntryKind::folder) return false;
    wanted.remove_suffix(1);
  }
  const bool isForPaths = wanted.find('/') != std::string_view::npos;
  if (wanted.starts_with('/')) wanted.remove_prefix(1);
  const std::string_view below = path.substr(root.ends_with('/') ? root.size() : root.size() + 1);
  const std::string tested(isForPaths ? below : name);
  return fnmatch(std::string(wanted).c_str(), tested.c_str(), isForPaths ? FNM_PATHNAME : 0) == 0;
}

std::vector<Exclusion> exclusionsFor(const Decisions& decisions, const Root& root) {
  std::vector<Exclusion> exclusions;
  for (const Root& outer : decisions.roots) {
    if (!PathRange(outer.path).contains(root.path)) continue;
    for (const std::string& pattern : outer.exclusions) exclusions.push_back({outer.path, pattern});
  }
  return exclusions;
}

bool isExcluded(const Decisions& decisions, const std::string& file) {
  const Root* root = decisions.rootOf(file);
  if (root == nullptr) return false;
  const std::vector<Exclusion> exclusions = exclusionsFor(decisions, *root);
  if (exclusions.empty()) return false;
  for (std::string_view place = file; place != root->path; place = *parentOf(place)) {
    const EntryKind kind = place == file ? EntryKind::file : EntryKind::folder;
    const std::string_view name = place.substr(place.rfind('/') + 1);
    if (std::any_of(exclusions.begin(), exclusions.end(), [&](const Exclusion& exclusion) {
          return exclusion.matches(place, name, kind);
        })) {
      return true;
    }
  }
  return false;
}

}  // namespace norvast::indexer
