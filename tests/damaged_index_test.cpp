// Indexes that are missing, damaged, foreign, locked or being written: plain answers, no crash, no
// created file.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "tests/server_session.h"

namespace norvast {
namespace {

using nlohmann::json;

constexpr const char* SOME_FILES = R"(
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000)
INSERT INTO file SELECT printf('/n/%04d', i), hex(randomblob(20)), '', '', i, i FROM n;
INSERT INTO mcp_exposure SELECT path, 1 FROM file;
INSERT INTO analysis SELECT path, 'summary', 'tag', 'text' FROM file;)";

// Calls every tool once and lets it answer whatever it may: all must be ordinary tool answers.
void callEveryTool(ServerSession& server) {
  for (const char* tool : {"list_files", "search_files", "get_metadata", "get_summary", "list_tags",
                           "traverse_package"}) {
    EXPECT_FALSE(server.call(tool, {{"path", "/n/0001"}, {"query", "A"}}).text.empty()) << tool;
  }
}

std::size_t filesIn(const std::filesystem::path& folder) {
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) count += entry.exists();
  return count;
}

TEST(DamagedIndex, GivesPlainAnswers) {
  const struct {
    const char* name;
    std::function<void(const TestHome&)> damage;
    const char* listing;  // of list_files: count of total
  } rows[] = {
      {"empty file", [](const TestHome& home) { home.writeFile(home.database(), ""); }, "0 of 0"},
      {"no tables", [](const TestHome& home) { home.execute("CREATE TABLE other(x)"); }, "0 of 0"},
      {"no file table",
       [](const TestHome& home) {
         home.createIndex(SOME_FILES);
         home.execute("DROP TABLE file");
       },
       "0 of 3000"},
      {"no audit table",
       [](const TestHome& home) {
         home.createIndex(SOME_FILES);
         home.execute("DROP TABLE audit_event");
       },
       "200 of 3000"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const TestHome home;
    row.damage(home);
    ServerSession server(home);
    const json answer = server.call("list_files").json();
    EXPECT_EQ(answer["count"].dump() + " of " + answer["total"].dump(), row.listing);
    callEveryTool(server);
    (void)server.end();
    EXPECT_EQ(filesIn(home.norvastFolder()), 1U);
  }
}

TEST(DamagedIndex, SurvivesCutsAndFlippedBytesAnywhere) {
  const TestHome home;
  home.createIndex(SOME_FILES);
  const auto size = std::filesystem::file_size(home.database());
  std::string whole(size, '\0');
  std::ifstream(home.database(), std::ios::binary).read(whole.data(), static_cast<long>(size));
  for (std::size_t variant = 1; variant <= 12; ++variant) {
    std::string bytes = whole;
    if (variant % 2 == 0) bytes.resize(size * variant / 13 + 7);
    for (std::size_t at = variant * 97; at < bytes.size(); at += 1501 * variant) {
      bytes[at] = static_cast<char>(bytes[at] ^ 0x5A);
    }
    home.writeFile(home.database(), bytes);
    ServerSession server(home);
    callEveryTool(server);
  }
}

TEST(MissingIndex, CreatesNothing) {
  const TestHome home;
  {
    ServerSession server(home);
    EXPECT_TRUE(server.call("list_files").isError);
  }
  EXPECT_EQ(filesIn(home.norvastFolder()), 0U);
  std::filesystem::create_directory(home.database());
  ServerSession server(home);
  EXPECT_TRUE(server.call("list_files").isError);
}

// What another process, here the test, holds of the database while the server is asked.
class OtherProcess {
 public:
  explicit OtherProcess(const TestHome& home) {
    EXPECT_EQ(sqlite3_open(home.database().c_str(), &handle_), SQLITE_OK);
  }
  ~OtherProcess() { sqlite3_close(handle_); }
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;

  void execute(const char* sql) const {
    EXPECT_EQ(sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
  }

 private:
  sqlite3* handle_ = nullptr;
};

TEST(BusyIndex, AnswersAfterTheTimeoutWhenLocked) {
  const TestHome home;
  home.createIndex(SOME_FILES);
  const OtherProcess other(home);
  other.execute("BEGIN EXCLUSIVE");
  ServerSession server(home);
  EXPECT_EQ(server.call("list_tags").text, "[]");
  other.execute("COMMIT");
  EXPECT_EQ(server.call("list_tags").text, "[\n  \"tag\"\n]");
  EXPECT_EQ(home.auditRows(), std::vector<std::string>{"tags|1 tags|ok|ok"});
}

TEST(BusyIndex, IsReadWhileAnotherProcessWritesAhead) {
  const TestHome home;
  home.createIndex(SOME_FILES);
  const OtherProcess other(home);
  other.execute("PRAGMA journal_mode=WAL");
  ServerSession server(home);
  other.execute("BEGIN IMMEDIATE; DELETE FROM mcp_exposure");
  EXPECT_EQ(server.call("list_files").json()["total"], 3000);
  other.execute("COMMIT");
  EXPECT_EQ(server.call("list_files").json()["total"], 0);
  EXPECT_EQ(home.auditRows(), std::vector<std::string>{"list|offset 0 · 0 of 0|ok|ok"});
}

}  // namespace
}  // namespace norvast
