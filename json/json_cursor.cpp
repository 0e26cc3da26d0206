#include "json/json_cursor.h"

#include <algorithm>

#include "text/ascii.h"

namespace norvast {
namespace {

constexpr std::string_view HEXADECIMAL_DIGITS = "0123456789abcdefABCDEF";
constexpr std::size_t ESCAPE_DIGITS = 4;  // behind \u

// Ends a run of characters of a string that stand for themselves.
bool isSpecial(char character) {
  return character == '"' || character == '\\' || static_cast<unsigned char>(character) < 0x20;
}

}  // namespace

std::string_view JsonCursor::takeValue() {
  passBlanks();
  const std::string_view start = rest_;
  return passValue() ? start.substr(0, start.size() - rest_.size()) : std::string_view();
}

std::string_view JsonCursor::takeString() {
  passBlanks();
  const std::string_view start = rest_;
  return passString() ? start.substr(0, start.size() - rest_.size()) : std::string_view();
}

bool JsonCursor::isAtEnd() {
  passBlanks();
  return rest_.empty();
}

bool JsonCursor::passValue() {
  if (rest_.empty()) return false;
  switch (rest_.front()) {
    case '{':
      return passItems('}');
    case '[':
      return passItems(']');
    case '"':
      return passString();
    case 't':
      return passWord("true");
    case 'f':
      return passWord("false");
    case 'n':
      return passWord("null");
    default:
      return passNumber();
  }
}

// Of an object or an array.
bool JsonCursor::passItems(char close) {
  if (level_ == JSON_NESTING_LIMIT) return false;
  ++level_;
  rest_.remove_prefix(1);
  bool closed = take(close);
  while (!closed) {
    if (close == '}' && (takeString().empty() || !take(':'))) return false;
    if (takeValue().empty()) return false;
    closed = take(close);
    if (!closed && !take(',')) return false;
  }
  --level_;
  return true;
}

bool JsonCursor::passString() {
  if (!pass('"')) return false;
  for (;;) {
    rest_.remove_prefix(static_cast<std::size_t>(
        std::find_if(rest_.begin(), rest_.end(), isSpecial) - rest_.begin()));
    if (pass('"')) return true;
    if (!passEscape()) return false;
  }
}

bool JsonCursor::passEscape() {
  if (!pass('\\')) return false;
  if (passOneOf("\"\\/bfnrt")) return true;
  if (!pass('u')) return false;
  for (std::size_t digit = 0; digit < ESCAPE_DIGITS; ++digit) {
    if (!passOneOf(HEXADECIMAL_DIGITS)) return false;
  }
  return true;
}

// Of any size: what a double cannot hold is a number, too.
bool JsonCursor::passNumber() {
  (void)pass('-');
  if (!pass('0') && !passDigits()) return false;
  if (pass('.') && !passDigits()) return false;
  if (!pass('e') && !pass('E')) return true;
  (void)(pass('+') || pass('-'));
  return passDigits();
}

bool JsonCursor::passDigits() {
  const auto* end = std::find_if_not(rest_.begin(), rest_.end(), isAsciiDigit);
  const auto count = static_cast<std::size_t>(end - rest_.begin());
  rest_.remove_prefix(count);
  return count > 0;
}

bool JsonCursor::passOneOf(std::string_view characters) {
  if (rest_.empty() || characters.find(rest_.front()) == std::string_view::npos) return false;
  rest_.remove_prefix(1);
  return true;
}

bool JsonCursor::passWord(std::string_view word) {
  if (!rest_.starts_with(word)) return false;
  rest_.remove_prefix(word.size());
  return true;
}

}  // namespace norvast
