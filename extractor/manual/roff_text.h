// Roff text: what a line of roff shows, once its escape sequences are carried out.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace norvast::extractor {

// Ends a text that goes on in the next line without a blank. No text holds it otherwise.
inline constexpr char ROFF_JOIN = '\x01';

// The strings that a text refers to by name, "\*(lq".
class RoffStrings {
 public:
  // Those that every system knows keep their value.
  void define(std::string_view name, std::string_view value);
  bool isDefined(std::string_view name) const;

  // Empty when there is none of that name, and when a text has referred to so many that it means
  // to take for ever.
  std::string_view value(std::string_view name) const;

 private:
  mutable std::size_t references_ = 0;
  std::map<std::string, std::string, std::less<>> values_;
};

// The text without changes of font, size and place, with signs and strings as themselves
// (groff(7), "Escape sequences"). Values of registers are left out. Grows to a bounded size.
std::string shownText(std::string_view line, const RoffStrings& strings);

}  // namespace norvast::extractor
