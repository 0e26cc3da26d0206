#include "tools/tool_result.h"

#include <utility>

#include "json/json_writer.h"

namespace norvast {

Json textResult(std::string text, IsError isError) {
  return Json::Object{
      {"content", Json::Array{Json::Object{{"type", "text"}, {"text", std::move(text)}}}},
      {"isError", isError == IsError::yes},
  };
}

Json refuse(const MCPStore& store, const AuditEvent& event, std::string sentence) {
  audit(store, event);
  return textResult(std::move(sentence), IsError::yes);
}

std::string jsonText(const Json& value) {
  return writeJson(value, JsonStyle::pretty).value_or("null");
}

}  // namespace norvast
