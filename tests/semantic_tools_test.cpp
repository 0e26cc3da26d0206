// Search by meaning: which rows take part, in which order, with which similarity, and the trail.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "ranking/cosine.h"
#include "tests/server_session.h"
#include "tests/stored_vector.h"

namespace norvast {
namespace {

using namespace std::string_literals;
using nlohmann::json;

constexpr const char* QUERY = "garden budget";

// Nominated, nearest first: /near, /far, /zero (similarity 0), /short (another length); the vector
// of /library is nearest of all but not nominated. /null and /empty have no row that counts.
std::string embeddings() {
  return "INSERT INTO embedding VALUES('/far'," + sqlTextBlob("the garden in winter") +
         "),('/zero'," + sqlBlob(std::vector<float>(EMBEDDING_DIMENSIONS)) + "),('/near'," +
         sqlTextBlob("budget of the garden") + "),('/library'," + sqlTextBlob(QUERY) +
         "),('/short',X'010203'),('/null',NULL),('/empty',X'');"
         "INSERT INTO mcp_exposure SELECT path,0 FROM embedding WHERE path<>'/library';"
         "INSERT INTO analysis VALUES('/near','near summary','',''),('/far',NULL,'','');";
}

TEST(SemanticSearch, RanksNominatedFilesByMeaning) {
  const TestHome home;
  home.createIndex(embeddings());
  ServerSession server(home);
  const json answer = server.call("semantic_search", {{"query", QUERY}}).json();
  EXPECT_EQ(answer["count"], 4);
  EXPECT_EQ(values(answer["results"], "path"),
            std::vector<std::string>({"/near", "/far", "/zero", "/short"}));
  EXPECT_EQ(values(answer["results"], "summary"),
            std::vector<std::string>({"near summary", "", "", ""}));
  EXPECT_EQ(answer["results"][0]["similarity"].get<double>(),
            double{cosine(textVector(QUERY), textVector("budget of the garden"))});
  EXPECT_EQ(answer["results"][2]["similarity"], 0);

  const struct {
    json limit;
    int count;
  } rows[] = {{0, 0}, {-5, 0}, {"3", 3}, {"three", 4}, {1, 1}, {INT64_MAX, 4}, {INT64_MIN, 0}};
  for (const auto& row : rows) {
    EXPECT_EQ(server.call("semantic_search", {{"query", QUERY}, {"limit", row.limit}})
                  .json()["results"]
                  .size(),
              row.count)
        << row.limit;
  }
  const std::vector<std::string> trail = home.auditRows();
  EXPECT_EQ(trail[0], R"(semantic|"garden budget" · 4 hits|ok|ok)");
  EXPECT_EQ(trail[1], R"(semantic|"garden budget" · 0 hits|ok|ok)");
}

TEST(SemanticSearch, IsUnavailableForATextWithoutAVector) {
  const TestHome home;
  home.createIndex(embeddings());
  ServerSession server(home);
  for (const char* query : {"", "?! —", "\u0301"}) {
    const ToolAnswer search = server.call("semantic_search", {{"query", query}});
    EXPECT_EQ(search.text, "Semantic search unavailable (no embeddings).");
    EXPECT_TRUE(search.isError);
    const ToolAnswer passages = server.call("retrieve_passages", {{"query", query}});
    EXPECT_EQ(passages.text, "Passage retrieval unavailable (no embeddings).");
    EXPECT_TRUE(passages.isError);
  }
  EXPECT_EQ(home.auditRows()[0], R"(semantic|""|embeddings unavailable|warn)");
  EXPECT_EQ(home.auditRows()[1], R"(retrieve|""|embeddings unavailable|warn)");
}

TEST(SemanticSearch, AnswersAnyQueryAndAnyStoredValue) {
  const TestHome home;
  home.createIndex();
  ServerSession server(home);
  for (const std::string& query :
       {"東京"s, "x"s, "a\0b"s, std::string(1'000'000, 'a'), "Ünïcode ﬁ १२"s}) {
    EXPECT_EQ(server.call("semantic_search", {{"query", query}}).json()["count"], 0);
  }
  const std::vector<float> infinite(EMBEDDING_DIMENSIONS, std::numeric_limits<float>::infinity());
  home.execute(
      "INSERT INTO mcp_exposure VALUES('/a',1),('',1);"
      "INSERT INTO embedding VALUES('/a','text, no blob'),(NULL,X'00'),('/a',zeroblob(1000000));"
      "INSERT INTO chunk VALUES('/a',NULL,NULL,X'0102'),('/a','7x',X'FF','text')");
  EXPECT_EQ(server.call("semantic_search", {{"query", "x"}}).json()["count"], 2);
  EXPECT_EQ(server.call("retrieve_passages", {{"query", "x"}}).json()["passages"],
            json::parse(R"([{"path":"/a","passage":0,"similarity":0,"text":""},
                            {"path":"/a","passage":7,"similarity":0,"text":"\uFFFD"}])"));
  home.execute("INSERT INTO embedding VALUES('/a'," + sqlBlob(infinite) + ")");
  EXPECT_EQ(server.call("semantic_search", {{"query", "x"}}).text, "null");
  EXPECT_EQ(home.auditRows().back(), R"(semantic|"x" · 3 hits|ok|ok)");
}

TEST(RetrievePassages, CitesPassagesOfReadableFiles) {
  const TestHome home;
  std::string sql = "INSERT INTO mcp_exposure VALUES('/a',1),('/metadata only',0),('/two',2);";
  for (const char* path : {"/metadata only", "/two", "/not nominated"}) {
    sql +=
        "INSERT INTO chunk VALUES('"s + path + "',0,'garden budget'," + sqlTextBlob(QUERY) + ");";
  }
  for (int ord = 0; ord < 60; ++ord) {
    const std::string text = ord == 42 ? "budget/garden" : "unrelated words";
    sql += "INSERT INTO chunk VALUES('/a'," + std::to_string(ord) + ",'" + text + "'," +
           sqlTextBlob(text) + ");";
  }
  home.createIndex(sql);
  ServerSession server(home);
  const json answer = server.call("retrieve_passages", {{"query", QUERY}, {"limit", 3}}).json();
  EXPECT_EQ(answer["count"], 3);
  EXPECT_EQ(answer["note"],
            "Cite each passage by its path. Excerpts are from nominated files you may read in full "
            "via read_file_content.");
  EXPECT_EQ(answer["passages"][0]["passage"], 42);
  EXPECT_EQ(answer["passages"][0]["text"], "budget/garden");
  EXPECT_EQ(answer["passages"][1]["passage"], 0);
  EXPECT_EQ(answer["passages"][2]["passage"], 1);
  for (const json& passage : answer["passages"]) EXPECT_EQ(passage["path"], "/a");

  const struct {
    json limit;
    int count;
  } rows[] = {{nullptr, 8}, {0, 1}, {-5, 1}, {500, 50}, {INT64_MAX, 50}};
  for (const auto& row : rows) {
    EXPECT_EQ(
        server.call("retrieve_passages", {{"query", QUERY}, {"limit", row.limit}}).json()["count"],
        row.count);
  }
  home.execute("DELETE FROM chunk");
  const json none = server.call("retrieve_passages", {{"query", QUERY}}).json();
  EXPECT_EQ(none["passages"], json::array());
  EXPECT_EQ(none["note"],
            "No passages — nominate documents (with content access) so they get chunked for "
            "retrieval.");
  EXPECT_EQ(home.auditRows()[0], R"(retrieve|"garden budget" · 3 passages|ok|ok)");
}

}  // namespace
}  // namespace norvast
