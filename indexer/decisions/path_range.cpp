#include "indexer/decisions/path_range.h"

#include <filesystem>
#include <system_error>

namespace norvast::indexer {
namespace {

// As many as the system itself follows (path_resolution(7)).
constexpr int MOST_LINKS = 40;

// The link on the way to a path whose target is not there.
std::optional<std::filesystem::path> danglingLink(const std::filesystem::path& path) {
  std::error_code failure;
  std::filesystem::path place;
  for (const auto& part : path) {
    place /= part;
    if (std::filesystem::is_symlink(place, failure)) return place;
  }
  return std::nullopt;
}

// With the links on the way to what may not be looked at resolved; behind that the path as written.
std::filesystem::path asFarAsReadable(const std::filesystem::path& path) {
  std::error_code failure;
  std::filesystem::path real = std::filesystem::canonical(path, failure);
  if (!failure || !path.has_relative_path()) return real;
  return asFarAsReadable(path.parent_path()) / path.filename();
}

std::string withoutEnd(std::string path) {
  if (path.size() > 1 && path.ends_with('/')) path.pop_back();
  return path;
}

}  // namespace

// The character behind the solidus is 0, so "/a0" is the first path behind all that begin with
// "/a/".
PathRange::PathRange(const std::string& root)
    : path(root),
      firstBelow(root.ends_with('/') ? root : root + "/"),
      firstBehind(firstBelow.substr(0, firstBelow.size() - 1) + "0") {}

std::string PathRange::condition(const std::string& column) {
  return "(" + column + " = ? OR (" + column + " >= ? AND " + column + " < ?))";
}

bool PathRange::contains(std::string_view other) const {
  return other == path || (other >= firstBelow && other < firstBehind);
}

std::optional<std::string> indexedPath(const std::string& path) {
  std::error_code failure;
  std::filesystem::path place = std::filesystem::absolute(path, failure);
  for (int links = 0; !failure && links < MOST_LINKS; ++links) {
    const std::filesystem::path resolved = std::filesystem::weakly_canonical(place, failure);
    if (failure == std::errc::permission_denied) {
      return withoutEnd(asFarAsReadable(place.lexically_normal()).string());
    }
    place = resolved;
    if (failure) break;
    const auto link = danglingLink(place);
    if (!link) return withoutEnd(place.string());
    const auto rest = place.lexically_relative(*link);
    place = link->parent_path() / std::filesystem::read_symlink(*link, failure);
    if (rest != ".") place /= rest;
  }
  return std::nullopt;
}

std::optional<std::string> linkAt(const std::string& path) {
  std::error_code failure;
  const std::filesystem::path absolute =
      withoutEnd(std::filesystem::absolute(path, failure).string());
  if (failure || !std::filesystem::is_symlink(absolute, failure)) return std::nullopt;
  const auto folder = std::filesystem::canonical(absolute.parent_path(), failure);
  if (failure) return std::nullopt;
  return (folder / absolute.filename()).string();
}

bool isBehindLink(const std::string& path) {
  std::error_code failure;
  const std::filesystem::path real = std::filesystem::canonical(path, failure);
  return !failure && real != path;
}

}  // namespace norvast::indexer
