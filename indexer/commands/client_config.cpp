#include "indexer/commands/client_config.h"

#include "json/json_writer.h"

namespace norvast::indexer {
namespace {

// How a client writes down a server that it starts. All but `toml` are JSON.
enum class Format {
  mcpServers,      // {"mcpServers": {name: {"command"}}}, which most clients took up
  servers,         // {"servers": {name: {"type": "stdio", "command"}}}
  contextServers,  // {"context_servers": {name: {"command", "args"}}}
  localCommand,    // {"mcp": {name: {"type": "local", "command": [program]}}}
  toml,            // [mcp_servers.name]
};

struct Client {
  std::string_view name;
  Format format;
  std::string_view place;
};

constexpr Client CLIENTS[] = {
    {"claude-code", Format::mcpServers, ".mcp.json in the folder of a project"},
    {"claude-desktop", Format::mcpServers,
     "claude_desktop_config.json (Settings, Developer, Edit Config)"},
    {"codex", Format::toml, "~/.codex/config.toml"},
    {"cursor", Format::mcpServers, "~/.cursor/mcp.json"},
    {"gemini-cli", Format::mcpServers, "~/.gemini/settings.json"},
    {"lm-studio", Format::mcpServers, "~/.lmstudio/mcp.json"},
    {"opencode", Format::localCommand, "~/.config/opencode/opencode.json"},
    {"vscode", Format::servers, ".vscode/mcp.json in the folder of a project"},
    {"windsurf", Format::mcpServers, "~/.codeium/windsurf/mcp_config.json"},
    {"zed", Format::contextServers, "~/.config/zed/settings.json"},
};

Json named(const std::string& key, Json::Object entry) {
  return Json::Object{{key, Json::Object{{"norvast", std::move(entry)}}}};
}

std::string legible(const Json& value) {
  return writeJson(value, JsonStyle::legible).value_or("") + "\n";
}

std::string entry(Format format, const std::string& server) {
  switch (format) {
    case Format::servers:
      return legible(named("servers", {{"type", "stdio"}, {"command", server}}));
    case Format::contextServers:
      return legible(named("context_servers", {{"command", server}, {"args", Json::Array{}}}));
    case Format::localCommand:
      return legible(named("mcp", {{"type", "local"}, {"command", Json::Array{server}}}));
    case Format::toml: {
      // A basic string of TOML takes every escape that one of JSON is written with, and wants one
      // for U+007F besides.
      std::string text = "[mcp_servers.norvast]\ncommand = ";
      appendJsonString(text, server, Solidus::plain);
      for (std::size_t at = 0; (at = text.find('\x7F', at)) != std::string::npos;) {
        text.replace(at, 1, "\\u007F");
      }
      return text + "\n";
    }
    case Format::mcpServers:
      break;
  }
  return legible(named("mcpServers", {{"command", server}}));
}

}  // namespace

std::vector<std::string> clientNames() {
  std::vector<std::string> names;
  for (const Client& client : CLIENTS) names.emplace_back(client.name);
  return names;
}

std::optional<ClientConfig> clientConfig(std::string_view client, const std::string& server) {
  if (client.empty()) return ClientConfig{entry(Format::mcpServers, server), {}};
  for (const Client& known : CLIENTS) {
    if (known.name == client) return ClientConfig{entry(known.format, server), known.place};
  }
  return std::nullopt;
}

}  // namespace norvast::indexer
