// Each line gets one answer at the most, which is JSON and has the id of its request.
#include "fuzz/small_index.h"
#include "fuzz/target.h"
#include "text/utf8.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace norvast;
  const std::string text = repairUtf8(std::string(textOf(bytes, size)));
  const auto message = JsonText::parse(text);
  if (!message || !message->isObject()) return 0;
  const std::string line = SmallIndex::instance().answerTo(*message);
  if (line.empty()) return 0;
  mustHold(line.find('\n') == line.size() - 1 && validUtf8Length(line) == line.size());
  const auto answer = JsonText::parse(line);
  mustHold(answer && answer->isObject());
  const auto id = message->member("id");
  const auto echo = answer->member("id");
  mustHold(id.has_value() == echo.has_value() && (!id || id->compact() == echo->compact()));
  return 0;
}
