// JSON text: a value as it came, checked once as a whole and then read in place, so that a line
// costs little more memory than its bytes and what nobody asks for is never built.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace norvast {

// One value of any type, a part of a text that it does not own.
class JsonText {
 public:
  // The value that `text`, which must be valid UTF-8 and outlive it, consists of. Nothing when it
  // is not exactly one JSON text (RFC 8259): with anything behind it but white space, a byte-order
  // mark before it, a NUL anywhere, or nesting beyond JSON_NESTING_LIMIT.
  static std::optional<JsonText> parse(std::string_view text);

  bool isObject() const { return text_.front() == '{'; }
  bool isArray() const { return text_.front() == '['; }

  // The value under that key, the last one where there are several. Nothing when there is none, or
  // when this is no object.
  std::optional<JsonText> member(std::string_view key) const;

  // Calls `visit` with each key and value of an object, in the order of the text, a repeated key as
  // often as it is there.
  void forEachMember(const std::function<void(std::string, JsonText)>& visit) const;

  // The elements, or none when this is no array.
  std::vector<JsonText> elements() const;

  // The value when it is of that type, else nothing. In a string, half of a surrogate pair, which
  // stands for no character, is U+FFFD. A number is whole by its value, however it was written.
  std::optional<std::string> string() const;
  std::optional<bool> boolean() const;
  std::optional<std::int64_t> wholeNumber() const;

  // The value as `writeJson` writes it in compact style, its numbers with the digits that they came
  // with. Takes memory of a few times the text.
  std::string compact() const;

 private:
  explicit JsonText(std::string_view text) : text_(text) {}

  std::string_view text_;
};

}  // namespace norvast
