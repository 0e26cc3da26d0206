#include "extractor/page/rtf_tokens.h"

#include <algorithm>
#include <charconv>

namespace norvast::extractor {
namespace {

bool isLetter(char character) {
  const char small = static_cast<char>(character | 0x20);
  return small >= 'a' && small <= 'z';
}

// How many leading characters `belongs` holds for.
template <typename Belongs>
std::size_t length(std::string_view text, Belongs belongs) {
  return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), belongs) -
                                  text.begin());
}

std::optional<int> number(std::string_view text, int base) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

}  // namespace

std::string_view RtfTokens::take(std::size_t count) {
  const std::string_view taken = rest_.substr(0, count);
  rest_.remove_prefix(taken.size());
  return taken;
}

RtfToken RtfTokens::next() {
  rest_.remove_prefix(
      std::min(rest_.find_first_not_of(std::string_view("\r\n\0", 3)), rest_.size()));
  if (rest_.empty()) return {};
  if (rest_.front() == '{') return {RtfToken::Kind::groupStart, take(1), {}};
  if (rest_.front() == '}') return {RtfToken::Kind::groupEnd, take(1), {}};
  if (rest_.front() == '\\') return control();
  return {RtfToken::Kind::text, take(rest_.find_first_of(std::string_view("{}\\\r\n\0", 6))), {}};
}

// Behind a backslash stands one of these:
//   'hh            a byte by two hexadecimal digits
//   a sign         a control word of its own: "\~", "\{", "\*"
//   letters -12    a control word, with or without a number; one blank behind it ends the word
//                  and is no text; "\bin4" is followed by four bytes of anything
RtfToken RtfTokens::control() {
  (void)take(1);
  if (rest_.empty()) return {};
  if (rest_.front() == '\'') {
    (void)take(1);
    return {RtfToken::Kind::byte, {}, number(take(2), 16)};
  }
  if (!isLetter(rest_.front())) return {RtfToken::Kind::word, take(1), {}};
  RtfToken token{RtfToken::Kind::word, take(length(rest_, isLetter)), {}};
  const std::size_t sign = rest_.starts_with('-') ? 1 : 0;
  const std::size_t digits =
      length(rest_.substr(sign), [](char digit) { return digit >= '0' && digit <= '9'; });
  if (digits > 0) token.number = number(take(sign + digits), 10);
  if (rest_.starts_with(' ')) (void)take(1);
  if (token.text == "bin")
    (void)take(static_cast<std::size_t>(std::max(token.number.value_or(0), 0)));
  return token;
}

}  // namespace norvast::extractor
