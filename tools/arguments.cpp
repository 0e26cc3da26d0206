#include "tools/arguments.h"

#include "text/decimal_integer.h"

namespace norvast {

std::optional<JsonText> Arguments::value(std::string_view key) const {
  return values_ ? values_->member(key) : std::nullopt;
}

std::string Arguments::str(std::string_view key) const {
  const auto found = value(key);
  return found ? found->string().value_or("") : "";
}

std::int64_t Arguments::intArg(std::string_view key, std::int64_t otherwise) const {
  const auto found = value(key);
  if (!found) return otherwise;
  if (const auto flag = found->boolean()) return *flag ? 1 : 0;
  if (const auto text = found->string()) return parseDecimalInteger(*text).value_or(otherwise);
  return found->wholeNumber().value_or(otherwise);
}

}  // namespace norvast
