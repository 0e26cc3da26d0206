// What may be reached: the switch files, the catalogue that follows them, sensitive paths.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "access/sensitive_path.h"
#include "tests/server_session.h"

namespace norvast {
namespace {

using nlohmann::json;

constexpr const char* ACCESS_OFF =
    "Norvast AI access is turned off. Turn it back on in the Norvast app (AI access tab) to read "
    "your files.";
constexpr const char* NO_INDEX =
    "No Norvast index found. Open the Norvast app and index a folder first.";

std::vector<std::string> toolNames(ServerSession& server) {
  return values(server.request({{"id", 1}, {"method", "tools/list"}})["result"]["tools"], "name");
}

TEST(SwitchFiles, TurnAccessOffAndTheLibraryOnAtTheNextRequest) {
  const TestHome home;
  home.createIndex();
  ServerSession server(home);
  const std::vector<std::string> nine = {
      "list_files", "search_files",     "semantic_search",   "get_metadata",     "get_summary",
      "list_tags",  "traverse_package", "read_file_content", "retrieve_passages"};
  std::vector<std::string> eleven = nine;
  eleven.insert(eleven.end(), {"search_library", "ask_norvast"});
  const auto off = home.norvastFolder() / "mcp.disabled";
  const auto library = home.norvastFolder() / "mcp.librarymeta";

  EXPECT_EQ(toolNames(server), nine);
  EXPECT_FALSE(server.call("list_tags").isError);

  home.writeFile(off, "false");
  for (const char* tool : {"list_tags", "search_library", "no_such_tool", ""}) {
    EXPECT_EQ(server.call(tool).text, ACCESS_OFF) << tool;
  }
  EXPECT_EQ(toolNames(server), nine);

  std::filesystem::create_directory(library);
  EXPECT_EQ(toolNames(server), eleven);
  std::filesystem::remove(off);
  EXPECT_FALSE(server.call("list_tags").isError);

  std::filesystem::remove(library);
  std::filesystem::create_symlink(home.path() / "nowhere", library);
  std::filesystem::create_symlink(home.database(), off);
  EXPECT_EQ(toolNames(server), nine);
  EXPECT_EQ(server.call("list_tags").text, ACCESS_OFF);
  EXPECT_EQ(home.auditRows(), std::vector<std::string>(2, "tags|0 tags|ok|ok"));
}

TEST(SwitchFiles, ComeBeforeTheMissingIndex) {
  const TestHome home;
  ServerSession server(home);
  EXPECT_EQ(server.call("list_files").text, NO_INDEX);
  EXPECT_TRUE(server.call("no_such_tool").isError);
  home.createIndex();  // too late for this server
  EXPECT_EQ(server.call("list_files").text, NO_INDEX);
  home.writeFile(home.norvastFolder() / "mcp.disabled", "");
  EXPECT_EQ(server.call("list_files").text, ACCESS_OFF);
}

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
