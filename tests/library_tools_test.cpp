// The whole-library tools: the switch before everything, and what they find.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/server_session.h"

namespace norvast {
namespace {

using nlohmann::json;

constexpr const char* LIBRARY = R"(
INSERT INTO file VALUES('/old-budget','Budget.md','md','Documents',5,10), ('/new','notes.txt','txt','',6,90),
  ('/tagged','plan.txt','txt','',7,50), ('/plain','budget_2','','',8,20), ('/u/.ssh/id','id','','',1,1);
INSERT INTO analysis VALUES('/new','The BUDGET of 50%.','',''), ('/tagged',NULL,'Budget' || char(10) || 'a_b','x'),
  ('/old-budget','','',NULL), ('/u/.ssh/id','a key','','');
INSERT INTO mcp_exposure VALUES('/plain',0);)";

std::vector<std::string> paths(const json& records) {
  std::vector<std::string> paths;
  for (const json& record : records) paths.push_back(record["path"]);
  return paths;
}

TEST(SearchLibrary, IsRefusedWhileTheSwitchFileIsAbsent) {
  const TestHome home;
  home.createIndex(LIBRARY);
  ServerSession server(home);
  const auto refused = [&server] {
    const ToolAnswer answer = server.call("search_library", {{"query", "budget"}});
    return answer.isError &&
           answer.text ==
               "Whole-library access is off. Enable it in the Norvast app (Settings) to discover "
               "across all files.";
  };
  EXPECT_TRUE(refused());
  home.writeFile(home.norvastFolder() / "mcp.librarymeta", "");
  EXPECT_FALSE(refused());
  std::filesystem::remove(home.norvastFolder() / "mcp.librarymeta");
  EXPECT_TRUE(refused());
  EXPECT_EQ(home.auditRows(),
            std::vector<std::string>{R"(library-search|"budget" · 4 hits|ok · metadata only|ok)"});
}

TEST(SearchLibrary, PutsNamesFirstAndFindsLiterally) {
  const TestHome home;
  home.createIndex(LIBRARY);
  home.writeFile(home.norvastFolder() / "mcp.librarymeta", "");
  ServerSession server(home);
  const struct {
    json arguments;
    std::vector<std::string> found;
  } rows[] = {
      {{{"query", "budget"}}, {"/plain", "/old-budget", "/new", "/tagged"}},
      {{{"query", "50%"}}, {"/new"}},
      {{{"query", "a_b"}}, {"/tagged"}},
      {{{"query", "t_2"}}, {"/plain"}},
      {{{"query", "key"}}, {"/u/.ssh/id"}},
      {json::object(), {"/new", "/tagged", "/plain", "/old-budget", "/u/.ssh/id"}},
      {{{"query", "budget"}, {"limit", 0}}, {"/plain"}},
      {{{"query", "budget"}, {"limit", "2"}}, {"/plain", "/old-budget"}},
      {{{"query", std::string(100'000, '%')}}, {}},
  };
  for (const auto& row : rows) {
    const json answer = server.call("search_library", row.arguments).json();
    EXPECT_EQ(answer["scope"], "whole library (metadata only)");
    EXPECT_EQ(answer["count"], row.found.size()) << row.arguments.dump().substr(0, 80);
    EXPECT_EQ(paths(answer["results"]), row.found) << row.arguments.dump().substr(0, 80);
  }
  EXPECT_EQ(server.call("search_library", {{"query", "50%"}}).json()["results"][0],
            json({{"path", "/new"},
                  {"name", "notes.txt"},
                  {"ext", "txt"},
                  {"size_bytes", 6},
                  {"modified", "1970-01-01T00:01:30Z"},
                  {"summary", "The BUDGET of 50%."}}));
}

}  // namespace
}  // namespace norvast
