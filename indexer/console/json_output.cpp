#include "indexer/console/json_output.h"

#include "json/json_writer.h"
#include "text/visible_text.h"

namespace norvast::indexer {

// None of the values holds a number that is NaN or infinite, which alone could not be written.
std::string jsonText(const Json& value) {
  return visibleJson(writeJson(value, JsonStyle::legible).value_or("null")) + "\n";
}

std::string jsonLine(const Json& value) {
  return visibleJson(writeJson(value, JsonStyle::compact).value_or("null")) + "\n";
}

Json orNull(const std::optional<std::string>& text) { return text ? Json(*text) : Json(nullptr); }

Json strings(const std::vector<std::string>& texts) {
  return Json::Array(texts.begin(), texts.end());
}

}  // namespace norvast::indexer
