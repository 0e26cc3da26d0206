// Dry runs: they say what the run then does, and change nothing at all.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

#include "tests/harness/file_bytes.h"
#include "tests/harness/index_command.h"
#include "tests/harness/server_session.h"
#include "tests/harness/test_home.h"

namespace norvast {
namespace {

class DryRun : public testing::Test {
 protected:
  // Every file and folder in the home folder, with its bytes, but for SQLite's shared memory.
  std::map<std::string, std::string> allThere() const {
    std::map<std::string, std::string> all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(home.path())) {
      const std::string path = entry.path();
      if (!path.ends_with("-shm")) all[path] = entry.is_directory() ? "" : fileBytes(path);
    }
    return all;
  }

  // The table that a dry run prints, which must leave everything as it was.
  std::string table(const std::string& arguments, int status = 0) const {
    const auto before = allThere();
    const Outcome outcome = index(home, arguments + " --dry-run");
    EXPECT_EQ(outcome.status, status) << outcome.output;
    EXPECT_EQ(allThere(), before);
    return outcome.output;
  }

  void write(const std::string& name, const std::string& text) const {
    home.writeFile(home.path() / "docs" / name, text);
  }

  TestHome home;
};

TEST_F(DryRun, SaysWhatWouldBeReadAndShown) {
  for (const char* name : {"a", "b", "c", "private/p"}) write(name, "1");
  for (int at = 10; at < 22; ++at) write("x" + std::to_string(at) + ".log", "1");
  const std::string arguments = "add --nominate content --exclude '*.log' docs";
  const std::string docs = home.path().string() + "/docs/";
  EXPECT_NE(table(arguments).find("left out: 12 names by patterns\n  " + docs + "x10.log\n"),
            std::string::npos);
  const std::string first = table(arguments);
  EXPECT_EQ(first.find("x20.log"), std::string::npos);
  EXPECT_NE(first.find("  and 2 more\n"), std::string::npos);
  EXPECT_NE(first.find("new                     4\n"), std::string::npos);
  EXPECT_EQ(index(home, arguments).status, 0);

  EXPECT_EQ(index(home, "withdraw docs/private").status, 0);
  EXPECT_EQ(index(home, "remove docs/c").status, 0);
  std::filesystem::rename(docs + "private", docs + "open");  // and withheld still
  std::filesystem::remove(docs + "b");
  write("a", "changed");
  const std::string expected =
      "new                     1\n"
      "changed                 1\n"
      "unchanged               0\n"
      "gone                    2\n"
      "AI clients would see of them\n"
      "  text, too             1\n"
      "  summaries             0\n"
      "  nothing               1\n";
  EXPECT_TRUE(table("update").starts_with(expected)) << table("update");
  EXPECT_NE(table("update").find("by rules\n  " + docs + "c\n"), std::string::npos);
  ServerSession server(home);  // which keeps the log of the index open
  (void)server.call("list_files");
  EXPECT_TRUE(table("update").starts_with(expected));
  EXPECT_EQ(index(home, "update").output.substr(0, 78),
            "indexed                 2\nunchanged               0\nremoved                 2\n");
  EXPECT_EQ(home.query("SELECT count(*) FROM mcp_exposure"), std::vector<std::string>{"1"});
}

TEST_F(DryRun, MakesNoIndexAndLooksIntoOlderOnes) {
  write("a", "1");
  EXPECT_NE(table("update", 1).find("nothing to keep up with"), std::string::npos);
  EXPECT_EQ(index(home, "add docs --quiet").status, 0);
  home.execute("ALTER TABLE chunk ADD COLUMN later TEXT; PRAGMA user_version = 1");
  EXPECT_NE(table("update").find("changed                 1\n"), std::string::npos);
  home.execute("PRAGMA application_id = 1");
  EXPECT_NE(table("update", 1).find("was not made by"), std::string::npos);
}

// What was made of a file is made again, though it is the same.
TEST(AddByForce, ReadsWhatIsUnchanged) {
  const TestHome home;
  home.writeFile(home.path() / "docs/a.txt", "text");
  EXPECT_EQ(index(home, "add docs").status, 0);
  home.execute("UPDATE analysis SET summary = 'another'");
  EXPECT_NE(index(home, "add docs").output.find("unchanged               1"), std::string::npos);
  EXPECT_NE(index(home, "add docs --force").output.find("indexed                 1"),
            std::string::npos);
  EXPECT_EQ(home.query("SELECT summary FROM analysis"), std::vector<std::string>{"text"});
}

}  // namespace
}  // namespace norvast
