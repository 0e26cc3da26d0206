#include "companion/territory.h"

#include <filesystem>
#include <system_error>

#include "store/mcp_store.h"

namespace norvast {

std::optional<std::string> indexFolder() {
  const auto database = indexDatabasePath();
  if (!database) return std::nullopt;
  std::error_code failure;
  const auto folder =
      std::filesystem::canonical(std::filesystem::path(*database).parent_path(), failure);
  if (failure) return std::nullopt;
  return folder.string();
}

Territory::Territory(const Decisions& decisions)
    : decisions_(decisions), ownFolder_(indexFolder()) {}

bool Territory::enters(const std::string& folder) {
  if (folder == ownFolder_) return false;
  isLeftOut_ = isLeftOut(folder);
  isPlain_ = !decisions_.rules.hasBelow(folder) && decisions_.rootsWithin(folder).empty();
  return true;
}

bool Territory::takes(const std::string& path, std::string_view /*name*/, EntryKind kind) {
  if (isPlain_) return !isLeftOut_;
  const Root* root = decisions_.rootOf(path);
  if (root != nullptr && root->path == path) return false;  // it has a scan of its own
  // What is decided below a folder that is left out may take a part of it in again.
  return !isLeftOut(path) || (kind == EntryKind::folder && decisions_.rules.hasBelow(path));
}

bool Territory::isLeftOut(const std::string& path) const {
  const auto rule = decisions_.rules.holdingFor(path);
  return rule && rule->kind == RuleKind::leftOut;
}

}  // namespace norvast
