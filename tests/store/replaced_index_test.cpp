// An index that is moved away or replaced under a program that has it open: the new one is neither
// written nor read by it.
#include <fcntl.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/harness/index_command.h"
#include "tests/harness/server_session.h"

namespace norvast {
namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

const Strings MAIN = {""};
const Strings ALL = {"", "-wal", "-shm"};

void moveAway(const TestHome& home, const Strings& suffixes) {
  for (const std::string& suffix : suffixes) {
    std::error_code none;
    fs::rename(home.database().string() + suffix, home.path() / ("away" + suffix), none);
  }
}

void remove(const TestHome& home, const Strings& suffixes) {
  for (const std::string& suffix : suffixes) fs::remove(home.database().string() + suffix);
}

void moveFolderAway(const TestHome& home, const Strings& /*suffixes*/) {
  fs::rename(home.norvastFolder(), home.path() / "away");
}

void renameAnotherOver(const TestHome& home, const Strings& suffixes) {
  const TestHome other;
  other.writeFile(other.path() / "new/other.txt", "from a backup");
  ASSERT_EQ(index(other, "add new").status, 0);
  remove(home, suffixes);
  fs::rename(other.database(), home.database());
}

struct Way {
  const char* name;
  void (*replace)(const TestHome& home, const Strings& suffixes);
  Strings suffixes;
  bool isUsed;  // whether the server has answered before
};

TEST(ReplacedIndex, IsNotTouchedByTheServerOfTheOldOne) {
  const Way ways[] = {{"moved away with its log", moveAway, ALL, false},
                      {"moved away with its log, used", moveAway, ALL, true},
                      {"moved away alone", moveAway, MAIN, false},
                      {"moved away alone, used", moveAway, MAIN, true},
                      {"removed with its log", remove, ALL, false},
                      {"removed alone", remove, MAIN, false},
                      {"removed alone, used", remove, MAIN, true},
                      {"folder moved away", moveFolderAway, {}, false},
                      {"folder moved away, used", moveFolderAway, {}, true},
                      {"another renamed over it", renameAnotherOver, MAIN, false},
                      {"another renamed over it, log removed", renameAnotherOver, ALL, true}};
  for (const Way& way : ways) {
    SCOPED_TRACE(way.name);
    const TestHome home;
    for (int file = 0; file < 40; ++file) {
      home.writeFile(home.path() / "old" / (std::to_string(file) + ".txt"), std::string(999, 'a'));
      home.writeFile(home.path() / "new" / (std::to_string(file) + ".txt"), std::string(999, 'b'));
    }
    ASSERT_EQ(index(home, "add --nominate content old").status, 0);
    ServerSession server(home);
    (void)server.request({{"jsonrpc", "2.0"}, {"id", 1}, {"method", "ping"}});
    if (way.isUsed) (void)server.call("list_files");

    way.replace(home, way.suffixes);
    ASSERT_EQ(index(home, "add --nominate content new").status, 0);
    for (int call = 0; call < 3; ++call) {
      EXPECT_EQ(server.call("list_files").json()["total"], 0);
    }
    EXPECT_EQ(home.query("PRAGMA integrity_check"), Strings{"ok"});
    EXPECT_EQ(home.query("SELECT count(*) FROM mcp_exposure"), Strings{"40"});
    EXPECT_EQ(home.auditRows(), Strings{});
  }
}

// Another table's worth of rows without an end, in the place of the table of files.
TEST(EndlessView, IsGivenUpInTime) {
  const TestHome home;
  home.createIndex(R"(ALTER TABLE mcp_exposure RENAME TO nominations;
CREATE VIEW mcp_exposure AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n)
  SELECT '/' || i AS path, 1 AS allow_content FROM n;)");
  ServerSession server(home);
  EXPECT_EQ(server.call("list_files").json()["total"], 0);
  EXPECT_EQ(home.auditRows(), Strings{"list|offset 0 · 0 of 0|ok|ok"});
}

TEST(EndlessView, IsRefusedByTheIndexer) {
  const TestHome home;
  home.writeFile(home.path() / "docs/a", "text");
  ASSERT_EQ(index(home, "add docs").status, 0);
  home.execute(R"(ALTER TABLE file RENAME TO files;
CREATE VIEW file AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n)
  SELECT '/' || i AS path, 'n' AS name, '' AS ext, '' AS grp, 1 AS size, 1 AS modified,
         0 AS nanoseconds FROM n;)");
  for (const char* command :
       {"add docs", "update", "watch", "nominate docs", "withdraw docs", "remove docs"}) {
    const Outcome outcome = index(home, command);
    EXPECT_EQ(outcome.status, 1) << command;
    EXPECT_NE(outcome.output.find("holds views"), std::string::npos) << command << outcome.output;
  }
}

// A file that the client left open was taken for one of the server's own.
TEST(InheritedDescriptor, LeavesItsFileReadable) {
  const TestHome home;
  const std::string path = home.path() / "a.txt";
  home.writeFile(path, "text");
  home.createIndex("INSERT INTO mcp_exposure VALUES('" + path + "', 1)");
  const Descriptor leaked(open(path.c_str(), O_RDONLY));
  ServerSession server(home);
  EXPECT_EQ(server.call("read_file_content", {{"path", path}}).text, "text");
}

}  // namespace
}  // namespace norvast
