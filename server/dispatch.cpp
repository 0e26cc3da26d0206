#include "server/dispatch.h"

#include <optional>
#include <string>

#include "server/response.h"
#include "tools/arguments.h"
#include "tools/call_tool.h"

namespace norvast {
namespace {

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

Json toolsCallResult(const JsonText& message, const ProcessValues& values) {
  const Arguments params(message.member("params"));
  return callTool(params.str("name"), Arguments(params.value("arguments")), values.store,
                  values.sentence);
}

}  // namespace

void handle(const JsonText& message, const ProcessValues& values, Output& output) {
  const auto methodValue = message.member("method");
  const auto method = methodValue ? methodValue->string() : std::nullopt;
  if (!method) return;
  const auto id = message.member("id");

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
