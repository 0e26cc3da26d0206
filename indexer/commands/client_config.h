// Client configuration: the entry that registers the server, in the format of each client's file.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace norvast::indexer {

struct ClientConfig {
  std::string text;        // the entry, in the client's format, ended by a line feed
  std::string_view place;  // where the client looks for it; empty in the general form
};

// The names that clientConfig takes, in ascending order.
std::vector<std::string> clientNames();

// The entry that starts the program `server` for the client of that name, or in the general form
// for the empty one. Nothing for a name that is not among clientNames().
std::optional<ClientConfig> clientConfig(std::string_view client, const std::string& server);

}  // namespace norvast::indexer
