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
  std::vector<std::string> names;
  const json answer = server.request({{"id", 1}, {"method", "tools/list"}});
  for (const json& tool : answer["result"]["tools"]) names.push_back(tool["name"]);
  return names;
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

TEST(Catalogue, DefinesEveryToolWithItsSchema) {
  const TestHome home;
  home.writeFile(home.norvastFolder() / "mcp.librarymeta", "");
  ServerSession server(home);
  const json tools = server.request({{"id", 1}, {"method", "tools/list"}})["result"]["tools"];
  ASSERT_EQ(tools.size(), 11U);

  const json text = {{"type", "string"}};
  const json number = {{"type", "integer"}};
  const auto described = [](json schema, const char* description) {
    schema["description"] = description;
    return schema;
  };
  const struct {
    const char* name;
    json properties;
    json required;
  } rows[] = {
      {"list_files",
       {{"offset", described(number, "start index (default 0)")},
        {"limit", described(number, "page size (default 200, max 1000)")}},
       nullptr},
      {"search_files",
       {{"query", described(text, "substring to match in file names")},
        {"limit", described(number, "max results (default 50, max 500)")}},
       {"query"}},
      {"semantic_search", {{"query", text}, {"limit", number}}, {"query"}},
      {"get_metadata", {{"path", text}}, {"path"}},
      {"get_summary", {{"path", text}}, {"path"}},
      {"list_tags", json::object(), nullptr},
      {"traverse_package", {{"path", text}}, {"path"}},
      {"read_file_content", {{"path", text}}, {"path"}},
      {"retrieve_passages",
       {{"query", text}, {"limit", described(number, "passages to return (default 8, max 50)")}},
       {"query"}},
      {"search_library",
       {{"query", text}, {"limit", described(number, "max results (default 30, max 200)")}},
       {"query"}},
      {"ask_norvast",
       {{"question", text},
        {"limit", described(number, "passages to retrieve (default 8, max 30)")}},
       {"question"}},
  };
  std::size_t at = 0;
  for (const auto& row : rows) {
    const json& tool = tools[at++];
    json schema = {{"type", "object"}, {"properties", row.properties}};
    if (!row.required.is_null()) schema["required"] = row.required;
    EXPECT_EQ(tool["name"], row.name);
    EXPECT_EQ(tool["inputSchema"], schema) << row.name;
    EXPECT_EQ(tool.size(), 3U) << row.name;
    EXPECT_TRUE(tool["description"].get<std::string>().ends_with('.')) << row.name;
  }
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
