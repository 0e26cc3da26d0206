// Indexes that are locked or being written: plain answers.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "store/connection.h"
#include "store/statement.h"
#include "tests/harness/server_session.h"

namespace norvast {
namespace {

constexpr const char* SOME_FILES = R"(
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000)
INSERT INTO file SELECT printf('/n/%04d', i), hex(randomblob(20)), '', '', i, i FROM n;
INSERT INTO mcp_exposure SELECT path, 1 FROM file;
INSERT INTO analysis SELECT path, 'summary', 'tag', 'text' FROM file;)";

// Another process, here the test, holds the database while the server is asked.
void run(const Connection& connection, const char* sql) {
  EXPECT_TRUE(Statement(connection, sql).run()) << sql;
}

TEST(BusyIndex, AnswersAfterTheTimeoutWhenLocked) {
  const TestHome home;
  home.createIndex(SOME_FILES);
  const Connection other = Connection::openReadWrite(home.database());
  run(other, "BEGIN EXCLUSIVE");
  ServerSession server(home);
  EXPECT_EQ(server.call("list_tags").text, "[]");
  run(other, "COMMIT");
  EXPECT_EQ(server.call("list_tags").text, "[\n  \"tag\"\n]");
  EXPECT_EQ(home.auditRows(), std::vector<std::string>{"tags|1 tags|ok|ok"});
}

TEST(BusyIndex, IsReadWhileAnotherProcessWritesAhead) {
  const TestHome home;
  home.createIndex(SOME_FILES);
  const Connection other = Connection::openReadWrite(home.database());
  run(other, "PRAGMA journal_mode=WAL");
  ServerSession server(home);
  run(other, "BEGIN IMMEDIATE");
  run(other, "DELETE FROM mcp_exposure");
  EXPECT_EQ(server.call("list_files").json()["total"], 3000);
  run(other, "COMMIT");
  EXPECT_EQ(server.call("list_files").json()["total"], 0);
  EXPECT_EQ(home.auditRows(), std::vector<std::string>{"list|offset 0 · 0 of 0|ok|ok"});
}

}  // namespace
}  // namespace norvast
