// The listing tools over real indexes: order, bounds, literal patterns, argument coercion, audit.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "store/tags.h"
#include "tests/server_session.h"

namespace norvast {
namespace {

using namespace std::string_literals;
using nlohmann::json;

// Nominated: /n/0001 ... /n/1200, the newest first by number; one nomination without a file.
constexpr const char* MANY = R"(
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1200)
INSERT INTO file SELECT printf('/n/%04d', i), printf('f%04d', i), '', 'Documents', i, 1000 + i FROM n;
INSERT INTO mcp_exposure SELECT path, 0 FROM file;
INSERT INTO mcp_exposure VALUES('/gone', 1);
INSERT INTO file VALUES('/not/nominated', 'f-secret', '', '', 1, 9999);
)";

TEST(ListFiles, PagesWithinItsBounds) {
  const TestHome home;
  home.createIndex(MANY);
  ServerSession server(home);
  const struct {
    json arguments;
    json offset;
    std::size_t count;
    const char* first;
  } rows[] = {
      {json::object(), 0, 200, "/n/0001"},
      {{{"limit", 25}, {"offset", 10}}, 10, 25, "/n/0011"},
      {{{"limit", 25.0}, {"offset", "+10"}}, 10, 25, "/n/0011"},
      {{{"limit", "25"}, {"offset", true}}, 1, 25, "/n/0002"},
      {{{"limit", 5000}, {"offset", -5}}, -5, 1000, "/n/0001"},
      {{{"limit", 0}, {"offset", false}}, 0, 1, "/n/0001"},
      {{{"limit", "-3"}}, 0, 1, "/n/0001"},
      {{{"limit", INT64_MIN}, {"offset", INT64_MIN}}, INT64_MIN, 1, "/n/0001"},
      {{{"limit", 2.5}, {"offset", " 25"}}, 0, 200, "/n/0001"},
      {{{"limit", nullptr}, {"offset", "twenty"}}, 0, 200, "/n/0001"},
      {{{"limit", json::array()}, {"offset", json::object()}}, 0, 200, "/n/0001"},
      {{{"limit", "9223372036854775808"}, {"offset", 1e19}}, 0, 200, "/n/0001"},
      {{{"offset", 1200}}, 1200, 0, nullptr},
      {{{"offset", INT64_MAX}}, INT64_MAX, 0, nullptr},
  };
  std::vector<std::string> expectedAudit;
  for (const auto& row : rows) {
    const json answer = server.call("list_files", row.arguments).json();
    EXPECT_EQ(answer["offset"], row.offset) << row.arguments;
    EXPECT_EQ(answer["count"], row.count) << row.arguments;
    EXPECT_EQ(answer["total"], 1201) << row.arguments;
    ASSERT_EQ(answer["results"].size(), row.count) << row.arguments;
    expectedAudit.push_back("list|offset " + row.offset.dump() + " · " + std::to_string(row.count) +
                            " of 1201|ok|ok");
    if (row.count == 0) continue;
    EXPECT_EQ(answer["results"][0]["path"], row.first) << row.arguments;
  }
  EXPECT_EQ(home.auditRows(), expectedAudit);
}

TEST(ListFiles, WritesItsAnswerPrettyAndEscaped) {
  const TestHome home;
  home.createIndex(R"(
INSERT INTO file VALUES('/a/ü "b".txt', X'FF78', NULL, '', '12', 1.5);
INSERT INTO mcp_exposure VALUES('/a/ü "b".txt', 1);)");
  ServerSession server(home);
  EXPECT_EQ(server.call("list_files").text, R"({
  "count" : 1,
  "offset" : 0,
  "results" : [
    {
      "ext" : "",
      "name" : ")"
                                            "\uFFFD"
                                            R"(x",
      "path" : "\/a\/ü \"b\".txt",
      "size_bytes" : 12
    }
  ],
  "total" : 1
})");
}

TEST(SearchFiles, FindsLiteralSubstringsNewestFirst) {
  const TestHome home;
  home.createIndex(R"(
INSERT INTO file VALUES('/1','Report 50%.pdf','','',1,10), ('/2','report 50x.pdf','','',1,30),
  ('/3','a_b','','',1,20), ('/4','axb','','',1,40), ('/5','back\slash','','',1,5),
  ('/6','"quoted"','','',1,6), ('/7','Ärger','','',1,7), ('/8','report hidden','','',1,99);
INSERT INTO mcp_exposure SELECT path, 0 FROM file WHERE path <> '/8';)");
  ServerSession server(home);
  const struct {
    std::string query;
    std::vector<std::string> paths;
  } rows[] = {
      {"REPORT", {"/2", "/1"}},
      {"50%", {"/1"}},
      {"a_b", {"/3"}},
      {"\\", {"/5"}},
      {"\"", {"/6"}},
      {"Ärger", {"/7"}},
      {"ärger", {}},
      {"", {"/4", "/2", "/3", "/1", "/7", "/6", "/5"}},
      {"50%.pdf\0x"s, {"/1"}},  // the pattern is cut at the NUL
      {" report", {}},
      {std::string(1'000'000, '%'), {}},
  };
  for (const auto& row : rows) {
    const json answer = server.call("search_files", {{"query", row.query}}).json();
    EXPECT_EQ(answer["count"], row.paths.size()) << row.query.substr(0, 20);
    EXPECT_EQ(values(answer["results"], "path"), row.paths) << row.query.substr(0, 20);
  }
  const std::vector<std::string> trail = home.auditRows();
  EXPECT_EQ(trail[0], R"(search|name~"REPORT" · 2 hits|ok|ok)");
  EXPECT_EQ(trail[4], R"(search|name~""" · 1 hits|ok|ok)");
  EXPECT_EQ(server.call("search_files", {{"query", 7}, {"limit", 2}}).json()["count"], 2);
}

TEST(SearchFiles, ReturnsAtMost500) {
  const TestHome home;
  home.createIndex(MANY);
  ServerSession server(home);
  EXPECT_EQ(server.call("search_files").json()["count"], 50);
  EXPECT_EQ(server.call("search_files", {{"limit", 900}}).json()["count"], 500);
  EXPECT_EQ(server.call("search_files", {{"limit", 0}}).json()["results"][0]["name"], "f1200");
}

TEST(TraversePackage, ListsWhatLiesBelowAFolder) {
  const TestHome home;
  home.createIndex(R"(
INSERT INTO file VALUES('/u/Docs/a.txt','a','','',1,1), ('/u/Docs/sub/b.txt','b','','',1,1),
  ('/u/Docs','Docs','','',1,1), ('/u/Docs2/c','c','','',1,1), ('/u/D%cs/d','d','','',1,1),
  ('/u/.ssh/id','id','','',1,1), ('relative/e','e','','',1,1);
INSERT INTO mcp_exposure SELECT path, 0 FROM file;)");
  ServerSession server(home);
  const struct {
    std::string path;
    std::vector<std::string> members;
  } rows[] = {
      {"/u/Docs", {"/u/Docs/a.txt", "/u/Docs/sub/b.txt"}},
      {"/u/Docs/", {}},
      {"/u/D%cs", {"/u/D%cs/d"}},
      {"/u/.ssh", {"/u/.ssh/id"}},
      {"/nowhere", {}},
      {"",
       {"/u/.ssh/id", "/u/D%cs/d", "/u/Docs", "/u/Docs/a.txt", "/u/Docs/sub/b.txt", "/u/Docs2/c"}},
  };
  std::vector<std::string> expectedAudit;
  for (const auto& row : rows) {
    const json answer = server.call("traverse_package", {{"path", row.path}, {"limit", 1}}).json();
    EXPECT_EQ(answer["count"], row.members.size()) << row.path;
    EXPECT_EQ(values(answer["members"], "path"), row.members) << row.path;
    expectedAudit.push_back("traverse|" + row.path + " · " + std::to_string(row.members.size()) +
                            "|ok|ok");
  }
  EXPECT_EQ(home.auditRows(), expectedAudit);

  home.execute(MANY);
  EXPECT_EQ(server.call("traverse_package", {{"path", "/n"}}).json()["count"], 200);
}

TEST(TagLines, AreSplitAtLineFeedsAlone) {
  using Lines = std::vector<std::string_view>;
  EXPECT_EQ(tagLines(""), Lines());
  EXPECT_EQ(tagLines("\n\n"), Lines());
  EXPECT_EQ(tagLines("\n a \n\nb"), Lines({" a ", "b"}));
  EXPECT_EQ(tagLines("a\r\nb\nc\r"), Lines({"a\r\nb", "c\r"}));
  EXPECT_EQ(tagLines("\r\n"), Lines({"\r\n"}));
  EXPECT_EQ(tagLines("a\n\r\nb"), Lines({"a", "\r\nb"}));
}

TEST(ListTags, CountsEveryOccurrenceOfEquivalentSpellings) {
  const TestHome home;
  home.createIndex(R"(
INSERT INTO analysis VALUES('/1','','Alice' || char(10) || 'Bob' || char(10) || 'cafe' || char(769),''),
  ('/2',NULL,'Alice' || char(10) || 'café' || char(10) || 'alice' || char(10) || 'café',NULL),
  ('/3','',NULL,''), ('/4','','Zed','');
INSERT INTO mcp_exposure VALUES('/1',0), ('/2',1), ('/3',1);)");
  ServerSession server(home);
  EXPECT_EQ(server.call("list_tags").json(), json({"cafe\u0301", "Alice", "Bob", "alice"}));

  home.execute(R"(DELETE FROM analysis;
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 60)
INSERT INTO analysis SELECT '/1', '', printf('t%02d', i) || iif(i > 30, char(10) || printf('t%02d', i), ''), '' FROM n;)");
  const json fifty = server.call("list_tags").json();
  ASSERT_EQ(fifty.size(), 50U);
  EXPECT_EQ(fifty[0], "t31");
  EXPECT_EQ(fifty[30], "t01");

  home.execute("DELETE FROM analysis");
  EXPECT_EQ(server.call("list_tags").text, "[]");
  EXPECT_EQ(home.auditRows(), std::vector<std::string>({"tags|4 tags|ok|ok", "tags|50 tags|ok|ok",
                                                        "tags|0 tags|ok|ok"}));
}

}  // namespace
}  // namespace norvast
