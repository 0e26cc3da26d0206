#include "companion/path_range.h"

#include <filesystem>
#include <system_error>

namespace norvast {

// The character behind the solidus is 0, so "/a0" is the first path behind all that begin with
// "/a/".
PathRange::PathRange(const std::string& root)
    : path(root),
      firstBelow(root.ends_with('/') ? root : root + "/"),
      firstBehind(firstBelow.substr(0, firstBelow.size() - 1) + "0") {}

bool PathRange::contains(std::string_view other) const {
  return other == path || (other >= firstBelow && other < firstBehind);
}

std::optional<std::string> indexedPath(const std::string& path) {
  std::error_code failure;
  const auto real = std::filesystem::canonical(path, failure);
  if (!failure) return real.string();
  const auto absolute = std::filesystem::absolute(path, failure);
  if (failure) return std::nullopt;
  std::string text = absolute.lexically_normal().string();
  if (text.size() > 1 && text.ends_with('/')) text.pop_back();
  return text;
}

}  // namespace norvast
