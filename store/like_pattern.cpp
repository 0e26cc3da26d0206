#include "store/like_pattern.h"

#include <sqlite3.h>

namespace norvast {

namespace {

// With a backslash before every backslash, % and _, so that LIKE matches them literally.
std::string likeLiteral(std::string_view text) {
  std::string literal;
  literal.reserve(text.size() + 2);
  for (const char character : text) {
    if (character == '\\' || character == '%' || character == '_') literal += '\\';
    literal += character;
  }
  return literal;
}

}  // namespace

std::string likeContaining(std::string_view text) { return "%" + likeLiteral(text) + "%"; }

std::string likeBelow(std::string_view folder) { return likeLiteral(folder) + "/%"; }

bool isLike(const std::string& text, const std::string& pattern) {
  return sqlite3_strlike(pattern.c_str(), text.c_str(), '\\') == 0;
}

}  // namespace norvast
