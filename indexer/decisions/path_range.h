// Path range: a file, or a folder with everything below it, as bounds in the byte order of paths.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace norvast::indexer {

// The SQL condition on a column `path` of all paths at or below one, for three text binds: the path
// itself, the first and the first one behind those below.
inline constexpr const char* AT_OR_BELOW = "(path = ? OR (path >= ? AND path < ?))";

struct PathRange {
  std::string path;
  std::string firstBelow;
  std::string firstBehind;

  explicit PathRange(const std::string& root);

  bool contains(std::string_view other) const;
};

// The absolute path that the index knows a user's path by: with all links on its way resolved, even
// where they lead to what is gone. Behind a folder that may not be entered it is as written.
// Nothing when it cannot be told.
std::optional<std::string> indexedPath(const std::string& path);

// Where a symbolic link lies itself, when the path names one: with the links on the way to it
// resolved.
std::optional<std::string> linkAt(const std::string& path);

// Whether what lies at an absolute path is reached through a symbolic link, on the way or at its
// end: the index knows it by another path. False when that cannot be told.
bool isBehindLink(const std::string& path);

}  // namespace norvast::indexer
