#include "content/path_extension.h"

#include <algorithm>

namespace norvast {
namespace {

char lowerCased(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string_view lastComponent(std::string_view path) {
  while (path.ends_with('/')) path.remove_suffix(1);
  return path.substr(path.rfind('/') + 1);  // npos + 1 is 0: the whole path
}

}  // namespace

std::string pathExtension(std::string_view path) {
  const std::string_view name = lastComponent(path);
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos) return {};
  std::string extension(name.substr(dot + 1));
  std::transform(extension.begin(), extension.end(), extension.begin(), lowerCased);
  return extension;
}

}  // namespace norvast
