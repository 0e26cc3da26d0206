// The per-file tools: who is answered, who is refused, and what each leaves in the trail.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/server_session.h"

namespace norvast {
namespace {

using nlohmann::json;

constexpr const char* FILES = R"(
INSERT INTO file VALUES('/a','a','txt','Documents',NULL,NULL), ('/b','b','','',12.9,'1700000000x'),
  ('/c','c','','',1,1), ('/u/.ssh/id','id','','',1,1), ('/hidden','h','','',1,1);
INSERT INTO analysis VALUES('/a','A summary/.','','text'), ('/c',NULL,'',''), ('/hidden','secret','',''),
  ('/u/.ssh/id','key summary','',''), ('/nofile','no file','','');
INSERT INTO mcp_exposure VALUES('/a',0), ('/b',1), ('/c',0), ('/u/.ssh/id',1), ('/nofile',0);)";

TEST(GetMetadata, AnswersForNominatedFilesAlone) {
  const TestHome home;
  home.createIndex(FILES);
  ServerSession server(home);
  const struct {
    json path;
    const char* text;
    bool isError;
    const char* audit;
  } rows[] = {
      {"/a",
       "{\n  \"ext\" : \"txt\",\n  \"extraction_method\" : \"text\",\n"
       "  \"modified\" : \"1970-01-01T00:00:00Z\",\n  \"name\" : \"a\",\n  \"path\" : \"\\/a\",\n"
       "  \"size_bytes\" : 0,\n  \"summary\" : \"A summary\\/.\",\n  \"type_group\" : "
       "\"Documents\"\n}",
       false, "metadata|/a|ok|ok"},
      {"/b",
       "{\n  \"ext\" : \"\",\n  \"modified\" : \"2023-11-14T22:13:20Z\",\n"
       "  \"name\" : \"b\",\n  \"path\" : \"\\/b\",\n  \"size_bytes\" : 12\n}",
       false, "metadata|/b|ok|ok"},
      {"/c",
       "{\n  \"ext\" : \"\",\n  \"modified\" : \"1970-01-01T00:00:01Z\",\n"
       "  \"name\" : \"c\",\n  \"path\" : \"\\/c\",\n  \"size_bytes\" : 1\n}",
       false, "metadata|/c|ok|ok"},
      {"/u/.ssh/id", "Denied: sensitive path.", true,
       "metadata|/u/.ssh/id|denied · sensitive path|deny"},
      {"/not/.env", "Denied: sensitive path.", true,
       "metadata|/not/.env|denied · sensitive path|deny"},
      {"/hidden", "Not found or not nominated.", true,
       "metadata|/hidden|denied · not allowlisted|warn"},
      {"/nofile", "Not found or not nominated.", true,
       "metadata|/nofile|denied · not allowlisted|warn"},
      {"/a/", "Not found or not nominated.", true, "metadata|/a/|denied · not allowlisted|warn"},
      {nullptr, "Not found or not nominated.", true, "metadata||denied · not allowlisted|warn"},
  };
  std::vector<std::string> expectedAudit;
  for (const auto& row : rows) {
    const ToolAnswer answer = server.call("get_metadata", {{"path", row.path}});
    EXPECT_EQ(answer.text, row.text) << row.path;
    EXPECT_EQ(answer.isError, row.isError) << row.path;
    expectedAudit.emplace_back(row.audit);
  }
  EXPECT_EQ(home.auditRows(), expectedAudit);
}

TEST(GetSummary, AnswersForNominatedAnalysesAlone) {
  const TestHome home;
  home.createIndex(FILES);
  ServerSession server(home);
  const struct {
    json path;
    const char* text;
    bool isError;
  } rows[] = {
      {"/a", "A summary/.", false},
      {"/c", "", false},
      {"/u/.ssh/id", "key summary", false},
      {"/nofile", "no file", false},
      {"/b", "No summary, or not nominated.", true},
      {"/hidden", "No summary, or not nominated.", true},
      {7, "No summary, or not nominated.", true},
  };
  for (const auto& row : rows) {
    const ToolAnswer answer = server.call("get_summary", {{"path", row.path}});
    EXPECT_EQ(answer.text, row.text) << row.path;
    EXPECT_EQ(answer.isError, row.isError) << row.path;
  }
  const std::vector<std::string> trail = home.auditRows();
  EXPECT_EQ(trail.front(), "summary|/a|ok|ok");
  EXPECT_EQ(trail.back(), "summary||denied · not allowlisted|warn");
}

TEST(AuditTrail, IsStampedInWholeSeconds) {
  const TestHome home;
  home.createIndex();
  ServerSession server(home);
  (void)server.call("list_tags");
  EXPECT_EQ(home.query("SELECT typeof(ts), abs(ts - strftime('%s','now')) < 60 FROM audit_event"),
            std::vector<std::string>{"integer|1"});
}

}  // namespace
}  // namespace norvast
