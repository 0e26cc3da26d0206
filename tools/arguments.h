// Arguments: the readers of a tool call's arguments, which take any JSON and never fail.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "json/json_text.h"

namespace norvast {

// Reads one call's arguments, the members of an object. Where there is no object, there are none.
class Arguments {
 public:
  explicit Arguments(std::optional<JsonText> values) : values_(values) {}

  std::optional<JsonText> value(std::string_view key) const;

  // The string under `key`, or the empty string when there is none or it is of another type.
  std::string str(std::string_view key) const;

  // The integer under `key`: a whole number within 64 bits, a string that is a decimal integer, or
  // true as 1 and false as 0; for anything else `otherwise`. Not bounded in any other way.
  std::int64_t intArg(std::string_view key, std::int64_t otherwise) const;

 private:
  std::optional<JsonText> values_;
};

}  // namespace norvast
