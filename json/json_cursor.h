// JSON cursor: walks over a text and takes one mark or value after the other, as RFC 8259 says.
#pragma once

#include <cstddef>
#include <string_view>

namespace norvast {

// Arrays and objects within each other, the outermost counting as one. The walk recurses over them,
// and stays far from the end of the stack.
inline constexpr std::size_t JSON_NESTING_LIMIT = 512;

// White space before what is taken is passed over. What is taken is a part of the text.
class JsonCursor {
 public:
  // `text` must be valid UTF-8 and outlive what is taken.
  explicit JsonCursor(std::string_view text) : rest_(text) {}

  // True when `mark` is next, which is then taken.
  bool take(char mark) {
    passBlanks();
    return pass(mark);
  }

  // The next value, or the next string with its quotation marks. Empty when there is none, when it
  // is malformed, or nested beyond the limit.
  std::string_view takeValue();
  std::string_view takeString();

  // True when nothing but white space is left.
  bool isAtEnd();

 private:
  static bool isBlank(char character) {
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
  }
  void passBlanks() {
    while (!rest_.empty() && isBlank(rest_.front())) rest_.remove_prefix(1);
  }
  bool pass(char mark) {
    if (rest_.empty() || rest_.front() != mark) return false;
    rest_.remove_prefix(1);
    return true;
  }
  bool passValue();
  bool passItems(char close);
  bool passString();
  bool passEscape();
  bool passNumber();
  bool passDigits();
  bool passOneOf(std::string_view characters);
  bool passWord(std::string_view word);

  std::string_view rest_;
  std::size_t level_ = 0;
};

}  // namespace norvast
