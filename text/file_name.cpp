#include "text/file_name.h"

#include "text/ascii.h"

namespace norvast {

std::string_view fileName(std::string_view path) {
  return path.substr(path.rfind('/') + 1);  // npos + 1 is 0: the whole path
}

std::string pathExtension(std::string_view path) {
  while (path.ends_with('/')) path.remove_suffix(1);
  const std::string_view name = fileName(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string() : asciiLowerCase(name.substr(dot + 1));
}

std::string fileExtension(std::string_view path) {
  const std::string_view name = fileName(path);
  return name.rfind('.') == 0 ? std::string() : pathExtension(name);
}

}  // namespace norvast
