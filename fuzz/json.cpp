// What was parsed and written is parsed again, and then written the same.
#include <string>

#include "fuzz/target.h"
#include "json/json_text.h"
#include "text/utf8.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace norvast;
  const std::string text = repairUtf8(std::string(textOf(bytes, size)));
  const auto value = JsonText::parse(text);
  if (!value) return 0;
  const std::string written = value->compact();
  const auto again = JsonText::parse(written);
  mustHold(again && again->compact() == written);
  mustHold(validUtf8Length(written) == written.size());
  mustHold(again->string() == value->string() && again->wholeNumber() == value->wholeNumber());
  return 0;
}
