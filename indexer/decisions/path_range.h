// Path range: a file, or a folder with everything below it, as bounds in the byte order of paths.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace norvast::indexer {

struct PathRange {
  std::string path;
  std::string firstBelow;
  std::string firstBehind;

  explicit PathRange(const std::string& root);

  bool contains(std::string_view other) const;

  // The SQL condition that is true for paths in this range in a column of that name, with three
  // binds: those that `binds` returns, in their order. An index on the column serves it.
  static std::string condition(const std::string& column = "path");
  std::vector<std::string> binds() const { return {path, firstBelow, firstBehind}; }
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
