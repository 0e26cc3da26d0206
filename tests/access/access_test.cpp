// What may be reached: the catalogue of tools, and the paths that never are.
#include <gtest/gtest.h>

#include <string>

#include "access/sensitive_path.h"
#include "tests/harness/server_session.h"

namespace norvast {
namespace {

using nlohmann::json;

TEST(Catalogue, DefinesEveryToolInOneShape) {
  const TestHome home;
  home.writeFile(home.norvastFolder() / "mcp.librarymeta", "");
  ServerSession server(home);
  const json tools = server.request({{"id", 1}, {"method", "tools/list"}})["result"]["tools"];
  ASSERT_EQ(tools.size(), 11U);
  for (const json& tool : tools) {
    const std::string name = tool["name"];
    EXPECT_EQ(tool.size(), 3U) << name;
    EXPECT_TRUE(tool["description"].get<std::string>().ends_with('.')) << name;
    const json& schema = tool["inputSchema"];
    EXPECT_EQ(schema["type"], "object") << name;
    const bool needsNothing = name == "list_files" || name == "list_tags";
    EXPECT_EQ(schema.contains("required"), !needsNothing) << name;
    if (needsNothing) continue;
    ASSERT_EQ(schema["required"].size(), 1U) << name;
    EXPECT_EQ(schema["properties"][schema["required"][0].get<std::string>()]["type"], "string")
        << name;
  }
  EXPECT_EQ(tools[0]["inputSchema"]["properties"]["limit"],
            json({{"type", "integer"}, {"description", "page size (default 200, max 1000)"}}));
  EXPECT_EQ(tools[2]["inputSchema"]["properties"]["query"], json({{"type", "string"}}));
  EXPECT_EQ(tools[5]["inputSchema"], json({{"type", "object"}, {"properties", json::object()}}));
}

TEST(SensitivePath, IsAnyPathThatHoldsAPattern) {
  for (const char* path :
       {"/Users/u/.ssh/id_ed25519", "/Users/u/.sshkeys/x", "/Users/u/p/.env", "/Users/u/p/.envrc",
        "/Users/u/p/.env.local", "/Users/u/Library/Keychains/login.keychain-db",
        "/Library/Keychains/System.keychain", "/home/u/.aws/credentials", "/home/u/.gnupg/x",
        "/Users/u/Library/Application Support/Google/Chrome/Default/Cookies",
        "/x/My Application Support/Google/Chrome", "/home/u/.config/gcloud/x", "/home/u/.netrc",
        "/Users/u/x/../.ssh/id"}) {
    EXPECT_TRUE(isSensitive(path)) << path;
  }
  for (const char* path : {"", "/Users/u/.SSH/id_rsa", "/Users/u/notes/ssh-setup.md", ".ssh/id",
                           "/Users/u/env", "/home/u/.config/other"}) {
    EXPECT_FALSE(isSensitive(path)) << path;
  }
}

}  // namespace
}  // namespace norvast
