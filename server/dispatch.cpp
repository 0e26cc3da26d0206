#include "server/dispatch.h"

#include <optional>
#include <string>

#include "server/response.h"
#include "tools/arguments.h"
#include "tools/call_tool.h"

namespace norvast {
namespace {

// The value under `key` when it is an object, else an empty one.
const Json::Object& objectOrEmpty(const Json::Object& parent, const char* key) {
  static const Json::Object EMPTY;
  const Json* value = member(parent, key);
  const Json::Object* object = value == nullptr ? nullptr : value->object();
  return object == nullptr ? EMPTY : *object;
}

Json initializeResult() {
  return Json::Object{
      {"protocolVersion", PROTOCOL_VERSION},
      {"capabilities", Json::Object{{"tools", Json::Object{{"listChanged", false}}}}},
      {"serverInfo", Json::Object{{"name", "norvast"}, {"version", NORVAST_VERSION}}},
      {"instructions",
       "Read-only access to a user-nominated subset of local files. Only nominated files are "
       "reachable; sensitive paths are always denied; raw content is gated."},
  };
}

Json toolsCallResult(const Json::Object& message, const ProcessValues& values) {
  const Json::Object& params = objectOrEmpty(message, "params");
  return callTool(Arguments(params).str("name"), objectOrEmpty(params, "arguments"), values.store,
                  values.sentence);
}

}  // namespace

void handle(const Json::Object& message, const ProcessValues& values, const Descriptor& output) {
  const Json* methodValue = member(message, "method");
  const std::string* method = methodValue == nullptr ? nullptr : methodValue->string();
  if (method == nullptr) return;

  const Json* idValue = member(message, "id");
  const std::optional<Json> id = idValue == nullptr ? std::nullopt : std::optional(*idValue);

  if (*method == "initialize") return reply(output, id, initializeResult());
  if (*method == "notifications/initialized" || *method == "initialized") return;
  if (*method == "ping") return reply(output, id, Json::Object());
  if (*method == "tools/list") {
    return reply(output, id, Json::Object{{"tools", currentTools(values.catalogue)}});
  }
  if (*method == "tools/call") return reply(output, id, toolsCallResult(message, values));
  if (id) replyError(output, id, METHOD_NOT_FOUND, "Method not found: " + *method);
}

}  // namespace norvast
