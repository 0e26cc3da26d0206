#include "server/response.h"

#include <utility>

#include "json/json_writer.h"

namespace norvast {
namespace {

void writeLine(const Descriptor& output, const std::optional<Json>& id, Json::Object message) {
  message["jsonrpc"] = "2.0";
  if (id) message["id"] = *id;
  const auto line = writeJson(std::move(message), JsonStyle::compact);
  if (!line) return;
  if (output.write(*line)) (void)output.write("\n");  // a client that has gone reads no answer
}

}  // namespace

void reply(const Descriptor& output, const std::optional<Json>& id, Json result) {
  Json::Object message;
  message["result"] = std::move(result);
  writeLine(output, id, std::move(message));
}

void replyError(const Descriptor& output, const std::optional<Json>& id, std::int64_t code,
                const std::string& message) {
  writeLine(output, id,
            Json::Object{{"error", Json::Object{{"code", code}, {"message", message}}}});
}

}  // namespace norvast
