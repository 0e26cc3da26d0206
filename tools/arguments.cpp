#include "tools/arguments.h"

#include "text/decimal_integer.h"

namespace norvast {

std::string Arguments::str(std::string_view key) const {
  const Json* value = member(values_, key);
  const std::string* text = value == nullptr ? nullptr : value->string();
  return text == nullptr ? std::string() : *text;
}

std::int64_t Arguments::intArg(std::string_view key, std::int64_t otherwise) const {
  const Json* value = member(values_, key);
  if (value == nullptr) return otherwise;
  if (const bool* flag = value->boolean()) return *flag ? 1 : 0;
  if (const std::string* text = value->string()) {
    return parseDecimalInteger(*text).value_or(otherwise);
  }
  return value->wholeNumber().value_or(otherwise);
}

}  // namespace norvast
