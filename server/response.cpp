#include "server/response.h"

#include <utility>

#include "json/json_writer.h"

namespace norvast {
namespace {

void writeLine(Output& output, const std::optional<JsonText>& id, Json::Object message) {
  message["jsonrpc"] = "2.0";
  if (id) message["id"] = Json::Text{id->compact()};
  const auto line = writeJson(std::move(message), JsonStyle::compact);
  if (line) output.writeLine(*line);
}

}  // namespace

void reply(Output& output, const std::optional<JsonText>& id, Json result) {
  Json::Object message;
  message["result"] = std::move(result);
  writeLine(output, id, std::move(message));
}

void replyError(Output& output, const std::optional<JsonText>& id, std::int64_t code,
                const std::string& message) {
  writeLine(output, id,
            Json::Object{{"error", Json::Object{{"code", code}, {"message", message}}}});
}

}  // namespace norvast
