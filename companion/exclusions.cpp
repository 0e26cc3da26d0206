#include "companion/exclusions.h"

#include <fnmatch.h>

namespace norvast {

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

}  // namespace norvast
