#include "access/sensitive_path.h"

#include <algorithm>

namespace norvast {

bool isSensitive(std::string_view path) {
  return std::any_of(denyPatterns.begin(), denyPatterns.end(), [path](std::string_view pattern) {
    return path.find(pattern) != std::string_view::npos;
  });
}

}  // namespace norvast
