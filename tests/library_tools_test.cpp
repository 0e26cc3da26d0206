// The whole-library tools: the switch before everything, and what they find.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/server_session.h"
#include "tests/stored_vector.h"

namespace norvast {
namespace {

using nlohmann::json;

constexpr const char* LIBRARY = R"(
INSERT INTO file VALUES('/old-budget','Budget.md','md','Documents',5,10), ('/new','notes.txt','txt','',6,90),
  ('/tagged','plan.txt','txt','',7,50), ('/plain','budget_2','','',8,20), ('/u/.ssh/id','id','','',1,1);
INSERT INTO analysis VALUES('/new','The BUDGET of 50%.','',''), ('/tagged',NULL,'Budget' || char(10) || 'a_b','x'),
  ('/old-budget','','',NULL), ('/u/.ssh/id','a key','','');
INSERT INTO mcp_exposure VALUES('/plain',0);)";

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
    EXPECT_EQ(values(answer["results"], "path"), row.found) << row.arguments.dump().substr(0, 80);
  }
  EXPECT_EQ(server.call("search_library", {{"query", "50%"}}).json()["results"][0],
            json({{"path", "/new"},
                  {"name", "notes.txt"},
                  {"ext", "txt"},
                  {"size_bytes", 6},
                  {"modified", "1970-01-01T00:01:30Z"},
                  {"summary", "The BUDGET of 50%."}}));
}

// Keyword files before semantic ones: /both is found by two terms, /b1 and /b2 by one, the rest by
// meaning alone.
std::string questionLibrary() {
  std::string sql =
      "INSERT INTO file VALUES('/both','budget report','','',1,1),('/b2','budget','','',1,2),"
      "('/b1','x','','',1,3),('/meaning','x','','',1,4),('/other','x','','',1,5);"
      "INSERT INTO analysis VALUES('/b1','the budget','',''),('/meaning',NULL,'',''),"
      "('/both','both summary','','');"
      "INSERT INTO mcp_exposure VALUES('/b1',0),('/meaning',1);";
  for (const char* path : {"/both", "/meaning", "/other", "/meaning"}) {
    sql += std::string("INSERT INTO embedding VALUES('") + path + "'," +
           sqlTextBlob(std::string(path) == "/other" ? "unrelated" : "budgetary reporting") + ");";
  }
  return sql;
}

TEST(AskNorvast, PicksByKeywordsThenByMeaning) {
  const TestHome home;
  home.createIndex(questionLibrary());
  home.writeFile(home.norvastFolder() / "mcp.librarymeta", "");
  ServerSession server(home);
  const std::string question = "Which budget is in the report?";
  const json answer = server.call("ask_norvast", {{"question", question}}).json();
  EXPECT_EQ(answer["question"], question);
  EXPECT_EQ(answer["grounding"],
            "on-device summaries from across the whole library (not raw content)");
  EXPECT_EQ(answer["note"],
            "Synthesize an answer citing these paths. To quote a file's content, ask the user to "
            "nominate it, then call read_file_content.");
  json passages = answer["passages"];
  ASSERT_EQ(passages.size(), 5U);
  EXPECT_GT(passages[3]["similarity"], passages[4]["similarity"]);
  passages[3].erase("similarity");
  passages[4].erase("similarity");
  const auto entry = [](const char* path, const char* summary, bool nominated, const char* match) {
    return json{{"path", path}, {"summary", summary}, {"nominated", nominated}, {"match", match}};
  };
  EXPECT_EQ(
      passages,
      json({entry("/both", "both summary", false, "name/tags"),
            entry("/b1", "the budget", true, "name/tags"), entry("/b2", "", false, "name/tags"),
            entry("/meaning", "", true, "semantic"), entry("/other", "", false, "semantic")}));
  EXPECT_EQ(home.auditRows(), std::vector<std::string>{
                                  "ask-norvast|\"Which budget is in the report?\" · 5 passages|ok "
                                  "· summaries only|ok"});
}

TEST(AskNorvast, CountsRepeatedTermsAndKeepsItsBounds) {
  const TestHome home;
  home.createIndex(questionLibrary());
  home.writeFile(home.norvastFolder() / "mcp.librarymeta", "");
  ServerSession server(home);
  const struct {
    json arguments;
    std::vector<std::string> found;
  } rows[] = {
      {{{"question", "budget budget report"}, {"limit", 3}}, {"/both", "/b1", "/b2"}},
      {{{"question", "budget report report"}, {"limit", 1}}, {"/both"}},
      {{{"question", "budget"}, {"limit", 0}}, {"/b1"}},
      {{{"question", "budget"}, {"limit", 2}}, {"/b1", "/b2"}},
      {{{"question", "the of it budgetary"}, {"limit", 100}}, {"/both", "/meaning", "/other"}},
      {{{"question", "50% \\ _ '"}, {"limit", 1}}, {"/both"}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(values(server.call("ask_norvast", row.arguments).json()["passages"], "path"),
              row.found)
        << row.arguments;
  }
}

TEST(AskNorvast, RefusesWithoutATrace) {
  const TestHome home;
  home.createIndex("INSERT INTO file VALUES('/a','a','','',1,1)");
  ServerSession server(home);
  EXPECT_EQ(server.call("ask_norvast", {{"question", "budget"}}).text,
            "Whole-library access is off. Enable it in the Norvast app (Settings).");
  home.writeFile(home.norvastFolder() / "mcp.librarymeta", "");
  for (const char* question : {"budget", "", "?!"}) {
    const ToolAnswer answer = server.call("ask_norvast", {{"question", question}});
    EXPECT_TRUE(answer.isError);
    EXPECT_EQ(answer.text,
              "No matches — semantic retrieval is unavailable and nothing matched the question's "
              "keywords.");
  }
  EXPECT_TRUE(home.auditRows().empty());
}

}  // namespace
}  // namespace norvast
