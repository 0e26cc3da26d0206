#include "json/whole_number.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace norvast {
namespace {

// 2^63 has 19 digits.
constexpr std::int64_t MOST_DIGITS = 19;

// Further from zero than any text has digits, and far from overflow.
constexpr std::int64_t MOST_EXPONENT = std::int64_t{1} << 40;

}  // namespace

// On the digits themselves: a double would round above 2^53.
std::optional<std::int64_t> wholeNumber(std::string_view text) {
  const bool negative = text.starts_with('-');
  text.remove_prefix(negative ? 1 : 0);

  const std::size_t exponentAt = std::min(text.find_first_of("eE"), text.size());
  const std::string_view mantissa = text.substr(0, exponentAt);
  const std::size_t pointAt = std::min(mantissa.find('.'), mantissa.size());
  std::string digits(mantissa.substr(0, pointAt));
  std::string_view fraction = mantissa.substr(std::min(pointAt + 1, mantissa.size()));
  digits += fraction;
  digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
  if (digits.empty()) return 0;

  std::int64_t exponent = 0;
  if (exponentAt < text.size()) {
    std::string_view power = text.substr(exponentAt + 1);
    power.remove_prefix(power.starts_with('+') ? 1 : 0);
    const auto parsed = std::from_chars(power.data(), power.data() + power.size(), exponent);
    if (parsed.ec != std::errc()) return std::nullopt;
    if (exponent > MOST_EXPONENT || exponent < -MOST_EXPONENT) return std::nullopt;
  }

  const std::size_t lastNonZero = digits.find_last_not_of('0');
  const auto trailingZeros = static_cast<std::int64_t>(digits.size() - 1 - lastNonZero);
  digits.resize(lastNonZero + 1);
  const std::int64_t zeros = exponent + trailingZeros - static_cast<std::int64_t>(fraction.size());
  if (zeros < 0 || zeros + static_cast<std::int64_t>(digits.size()) > MOST_DIGITS) {
    return std::nullopt;
  }

  digits.append(static_cast<std::size_t>(zeros), '0');
  if (negative) digits.insert(0, 1, '-');
  std::int64_t number = 0;
  const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (parsed.ec != std::errc()) return std::nullopt;
  return number;
}

}  // namespace norvast
