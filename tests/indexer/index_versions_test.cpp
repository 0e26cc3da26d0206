// Indexes of other versions, and several programs that make one at once.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "tests/harness/file_bytes.h"
#include "tests/harness/index_command.h"
#include "tests/harness/test_home.h"

namespace norvast {
namespace {

using Rows = std::vector<std::string>;

// As version 1 made it.
constexpr const char* FIRST_VERSION = R"(
PRAGMA journal_mode = WAL;
CREATE TABLE file(path TEXT PRIMARY KEY NOT NULL, name TEXT NOT NULL, ext TEXT NOT NULL, grp TEXT NOT NULL, size INTEGER NOT NULL, modified INTEGER NOT NULL, nanoseconds INTEGER NOT NULL) WITHOUT ROWID;
CREATE TABLE mcp_exposure(path TEXT PRIMARY KEY NOT NULL, allow_content INTEGER NOT NULL) WITHOUT ROWID;
CREATE TABLE analysis(path TEXT PRIMARY KEY NOT NULL, summary TEXT, entities TEXT, method TEXT);
CREATE TABLE embedding(path TEXT PRIMARY KEY NOT NULL, vec BLOB NOT NULL);
CREATE TABLE chunk(path TEXT NOT NULL, ord INTEGER NOT NULL, text TEXT NOT NULL, vec BLOB NOT NULL, PRIMARY KEY(path, ord));
CREATE TABLE audit_event(id INTEGER PRIMARY KEY, ts INTEGER NOT NULL, verb TEXT NOT NULL, object TEXT NOT NULL, result TEXT NOT NULL, severity TEXT NOT NULL);
PRAGMA application_id = 1315926646;
PRAGMA user_version = 1;
)";

TEST(IndexVersions, KeepWhatWasDecidedAndSeen) {
  const TestHome home;
  const std::string docs = home.path().string() + "/docs";
  for (const char* name : {"/a", "/b", "/c"}) home.writeFile(docs + name, "1");
  home.execute(std::string(FIRST_VERSION) + "INSERT INTO file VALUES('" + docs +
               "/a','a','','',1,2,3),('" + docs + "/b','b','','',1,2,3),('" + docs +
               "/c','c','','',1,2,3);" + "INSERT INTO mcp_exposure VALUES('" + docs + "/a',1),('" +
               docs + "/b',0);" + "INSERT INTO audit_event VALUES(7,1,'read','/a','ok','ok');" +
               "INSERT INTO analysis VALUES('/elsewhere','made anew','','');");
  ASSERT_EQ(index(home, "add '" + docs + "'").status, 0);
  EXPECT_EQ(home.query("SELECT substr(path,-1), kind FROM rule"),
            Rows({"a|content", "b|metadata"}));
  EXPECT_EQ(home.query("SELECT substr(path,-1), allow_content FROM mcp_exposure"),
            Rows({"a|1", "b|0"}));
  EXPECT_EQ(home.query("SELECT id, verb FROM audit_event"), Rows{"7|read"});
  EXPECT_EQ(home.query("SELECT count(*) FROM analysis"), Rows{"3"});
}

// What is made of texts may go with its layout; what users decided never does.
TEST(IndexVersions, RemakeTablesOfAnotherLayout) {
  const TestHome home;
  const std::string docs = home.path().string() + "/docs";
  home.writeFile(docs + "/a", "1");
  ASSERT_EQ(index(home, "add --nominate content '" + docs + "'").status, 0);
  const Rows before = home.query("SELECT name, size, modified FROM file");
  for (const char* table : {"file", "mcp_exposure", "chunk", "rule", "setting", "audit_event"}) {
    home.execute(std::string("ALTER TABLE ") + table + " ADD COLUMN later TEXT");
  }
  home.execute("PRAGMA user_version = 0; INSERT INTO setting(name,value) VALUES('x','y');");
  EXPECT_EQ(index(home, "nominate --metadata '" + docs + "'").status, 0);
  EXPECT_EQ(home.query("SELECT * FROM chunk"), Rows());
  EXPECT_EQ(home.query("SELECT name, size, modified FROM file"), before);
  EXPECT_EQ(home.query("SELECT value FROM setting WHERE name = 'x'"), Rows{"y"});
  ASSERT_EQ(index(home, "add '" + docs + "'").status, 0);
  EXPECT_EQ(home.query("SELECT count(*) FROM chunk"), Rows{"1"});
}

TEST(IndexVersions, AreMadeByFourAtOnce) {
  const TestHome home;
  std::vector<std::thread> runs;
  std::vector<Outcome> outcomes(4);
  for (std::size_t at = 0; at < outcomes.size(); ++at) {
    const std::string docs = home.path().string() + "/docs" + std::to_string(at);
    home.writeFile(docs + "/a", "1");
    runs.emplace_back(
        [&home, &outcomes, at, docs] { outcomes[at] = index(home, "add '" + docs + "'"); });
  }
  for (std::thread& run : runs) run.join();
  for (const Outcome& outcome : outcomes) EXPECT_EQ(outcome.status, 0) << outcome.output;
  EXPECT_EQ(home.query("SELECT count(*) FROM file"), Rows{"4"});
}

}  // namespace
}  // namespace norvast
