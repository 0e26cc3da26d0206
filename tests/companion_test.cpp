// The indexer, driven as a user drives it: what it indexes, keeps, drops and refuses.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "companion/file_scan.h"
#include "companion/type_group.h"
#include "tests/server_session.h"
#include "tests/test_home.h"

namespace norvast {
namespace {

struct Outcome {
  int status = -1;
  std::string output;  // standard output and standard error together
};

// Runs norvast_index with that home folder. The arguments are shell words.
Outcome index(const TestHome& home, const std::string& arguments) {
  const std::string command =
      "HOME='" + home.path().string() + "' '" NORVAST_INDEX "' " + arguments + " 2>&1";
  FILE* pipe = popen(command.c_str(), "r");
  Outcome outcome;
  std::array<char, 4096> block{};
  for (std::size_t count = 0; (count = fread(block.data(), 1, block.size(), pipe)) > 0;) {
    outcome.output.append(block.data(), count);
  }
  outcome.status = WEXITSTATUS(pclose(pipe));
  return outcome;
}

using Rows = std::vector<std::string>;

TEST(IndexAdd, IndexesRegularFilesThatAreNeitherHiddenNorSensitive) {
  const TestHome home;
  const auto docs = home.path() / "my docs";
  home.writeFile(docs / "Ünïcode – ä.TXT", "12345");
  home.writeFile(docs / "sub/deep/report.tar.gz", "");
  home.writeFile(docs / "noext", "x");
  home.writeFile(docs / ".hidden/file.txt", "x");
  home.writeFile(docs / ".env", "x");
  home.writeFile(docs / "Application Support/Google/Chrome/Cookies", "x");
  home.writeFile(docs / "line\nbreak.txt", "x");
  home.writeFile(docs / "latin\xE9.txt", "x");
  std::filesystem::create_symlink(docs, docs / "loop");
  std::filesystem::create_symlink(docs / "noext", docs / "link.txt");
  mkfifo((docs / "fifo.txt").c_str(), 0600);

  const Outcome outcome = index(home, "add '" + docs.string() + "'");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.output.find("invalid UTF-8: 2"), std::string::npos) << outcome.output;
  const std::string base = docs.string();
  EXPECT_EQ(
      home.query("SELECT path, name, ext, grp, size FROM file ORDER BY path"),
      Rows({base + "/noext|noext|||1", base + "/sub/deep/report.tar.gz|report.tar.gz|gz|Archives|0",
            base + "/Ünïcode – ä.TXT|Ünïcode – ä.TXT|txt|Documents|5"}));
  EXPECT_EQ(home.query("SELECT * FROM mcp_exposure"), Rows());
}

TEST(IndexAdd, KeepsUpWithChangesAndNominations) {
  const TestHome home;
  const auto docs = home.path() / "docs";
  for (const char* name : {"a", "b", "sub/c", "sub/d"}) home.writeFile(docs / name, "1");
  home.writeFile(home.path() / "docs2/other", "1");
  const std::string quoted = "'" + docs.string() + "'";
  ASSERT_EQ(
      index(home, "add --nominate content " + quoted + " '" + home.path().string() + "/docs2'")
          .status,
      0);
  home.execute("INSERT INTO analysis VALUES('" + docs.string() + "/a', 's', 'e', 'm')");

  std::filesystem::remove(docs / "a");
  std::filesystem::remove_all(docs / "sub");
  home.writeFile(docs / "b", "123");
  home.writeFile(docs / "new", "1");
  const Outcome outcome = index(home, "add " + quoted);
  EXPECT_EQ(outcome.output, "indexed 2, unchanged 0, removed 3, nominated 0\n");
  const std::string base = home.path().string();
  EXPECT_EQ(
      home.query("SELECT f.path, f.size, m.allow_content FROM file f LEFT JOIN mcp_exposure m "
                 "ON m.path = f.path ORDER BY f.path"),
      Rows({base + "/docs/b|3|1", base + "/docs/new|1|", base + "/docs2/other|1|1"}));
  EXPECT_EQ(home.query("SELECT count(*) FROM analysis"), Rows{"0"});

  EXPECT_EQ(index(home, "add --nominate metadata " + quoted).output,
            "indexed 0, unchanged 2, removed 0, nominated 2\n");
  EXPECT_EQ(home.query("SELECT path, allow_content FROM mcp_exposure ORDER BY path"),
            Rows({base + "/docs/b|0", base + "/docs/new|0", base + "/docs2/other|1"}));
  std::filesystem::remove(docs / "b");
  EXPECT_EQ(index(home, "add " + quoted).output,
            "indexed 0, unchanged 1, removed 1, nominated 0\n");
}

TEST(IndexAdd, IsReadByARunningServer) {
  const TestHome home;
  home.writeFile(home.path() / "docs/a b.txt", "1");
  const std::string command = "add --nominate metadata '" + home.path().string() + "/docs'";
  ASSERT_EQ(index(home, command).status, 0);
  ServerSession server(home);
  EXPECT_EQ(server.call("list_files").json()["total"], 1);
  home.writeFile(home.path() / "docs/c.txt", "1");
  ASSERT_EQ(index(home, command).status, 0);
  EXPECT_EQ(server.call("list_files").json()["total"], 2);
}

TEST(IndexAdd, RefusesADatabaseThatIsNotItsOwn) {
  const TestHome home;
  home.writeFile(home.path() / "docs/a", "1");
  const std::string command = "add '" + home.path().string() + "/docs'";
  for (const char* sql : {"CREATE TABLE file(path)", "PRAGMA application_id = 7",
                          "CREATE TABLE x(y); PRAGMA application_id = 1315926646; PRAGMA "
                          "user_version = 2"}) {
    std::filesystem::remove(home.database());
    home.execute(sql);
    const auto before = std::filesystem::last_write_time(home.database());
    const Outcome outcome = index(home, command);
    EXPECT_EQ(outcome.status, 1) << sql;
    EXPECT_NE(outcome.output.find("it is left as it is"), std::string::npos) << outcome.output;
    EXPECT_EQ(std::filesystem::last_write_time(home.database()), before);
  }
  home.writeFile(home.database(), std::string(10000, 'x'));
  EXPECT_NE(index(home, command).output.find("is no database"), std::string::npos);
  EXPECT_NE(index(home, "add /no/such/folder").status, 0);
  EXPECT_NE(index(home, "add").status, 0);
  EXPECT_NE(index(home, "add --nominate everything /").status, 0);
}

TEST(FileName, HasItsExtensionBehindTheLastDot) {
  const std::array<std::array<const char*, 3>, 8> rows = {{{"/a/b.PDF", "b.PDF", "pdf"},
                                                           {"/a.d/b", "b", ""},
                                                           {"/a/.bashrc", ".bashrc", ""},
                                                           {"/a/b.", "b.", ""},
                                                           {"/a/b.c.D", "b.c.D", "d"},
                                                           {"/a/ü.Ä", "ü.Ä", "Ä"},
                                                           {"b.x", "b.x", "x"},
                                                           {"/", "", ""}}};
  for (const auto& [path, name, extension] : rows) {
    EXPECT_EQ(fileName(path), name) << path;
    EXPECT_EQ(fileExtension(path), extension) << path;
  }
  EXPECT_EQ(typeGroup("pdf"), "Documents");
  EXPECT_EQ(typeGroup("mkv"), "Video");
  for (const char* none : {"", " ", "pd", "pdf txt", "xyz"}) EXPECT_EQ(typeGroup(none), "") << none;
}

}  // namespace
}  // namespace norvast
