// The indexer, driven as a user drives it: what it indexes, keeps, drops and refuses.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "store/connection.h"
#include "store/statement.h"
#include "tests/file_bytes.h"
#include "tests/index_command.h"
#include "tests/server_session.h"
#include "tests/test_home.h"

namespace norvast {
namespace {

// The table of counts on one line, but for the last one: "indexed 2, unchanged 0, ..."
std::string counts(const Outcome& outcome) {
  std::istringstream lines(outcome.output);
  std::string all;
  for (std::string line; std::getline(lines, line);) {
    const std::size_t number = line.find_last_of(' ') + 1;
    const std::size_t name = line.find("  ");
    if (name == 0 || name == std::string::npos || line.starts_with("nominated")) continue;
    if (!all.empty()) all += ", ";
    all += line.substr(0, name) + " " + line.substr(number);
  }
  return all;
}

using Rows = std::vector<std::string>;

TEST(IndexAdd, IndexesRegularFilesThatAreNeitherHiddenNorSensitive) {
  const TestHome home;
  const auto docs = home.path() / "my docs";
  home.writeFile(docs / "Ünïcode – ä.TXT", "12345");
  home.writeFile(docs / "sub/deep/report.tar.gz", "");
  home.writeFile(docs / "no.ext/noext", "x");
  home.writeFile(docs / "dot.", "x");
  home.writeFile(docs / ".hidden/file.txt", "x");
  home.writeFile(docs / ".env", "x");
  home.writeFile(docs / "Application Support/Google/Chrome/Cookies", "x");
  home.writeFile(docs / "line\nbreak.txt", "x");
  home.writeFile(docs / "latin\xE9.txt", "x");
  std::filesystem::create_symlink(docs, docs / "loop");
  std::filesystem::create_symlink(docs / "dot.", docs / "link.txt");
  mkfifo((docs / "fifo.txt").c_str(), 0600);

  const Outcome outcome = index(home, "add '" + docs.string() + "'");
  EXPECT_EQ(outcome.status, 3);  // done, with gaps
  EXPECT_NE(outcome.output.find("2 names with a line break or invalid UTF-8"), std::string::npos)
      << outcome.output;
  const std::string base = docs.string();
  EXPECT_EQ(home.query("SELECT path, name, ext, grp, size FROM file ORDER BY path"),
            Rows({base + "/dot.|dot.||Documents|1", base + "/no.ext/noext|noext||Documents|1",
                  base + "/sub/deep/report.tar.gz|report.tar.gz|gz|Archives|0",
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

  std::filesystem::remove(docs / "a");
  std::filesystem::remove_all(docs / "sub");
  home.writeFile(docs / "b", "123");
  home.writeFile(docs / "new", "1");
  const Outcome outcome = index(home, "add " + quoted);
  EXPECT_EQ(counts(outcome), "indexed 2, unchanged 0, removed 3, without text 0, failed 0");
  const std::string base = home.path().string();
  EXPECT_EQ(
      home.query("SELECT f.path, f.size, m.allow_content FROM file f LEFT JOIN mcp_exposure m "
                 "ON m.path = f.path ORDER BY f.path"),
      Rows({base + "/docs/b|3|1", base + "/docs/new|1|1", base + "/docs2/other|1|1"}));
  for (const char* table : {"analysis", "embedding", "chunk"}) {
    EXPECT_EQ(home.query(std::string("SELECT count(DISTINCT path) FROM ") + table), Rows{"3"});
  }

  EXPECT_EQ(counts(index(home, "add --nominate metadata " + quoted)),
            "indexed 0, unchanged 2, removed 0, without text 0, failed 0");
  EXPECT_EQ(home.query("SELECT path, allow_content FROM mcp_exposure ORDER BY path"),
            Rows({base + "/docs/b|0", base + "/docs/new|0", base + "/docs2/other|1"}));
  std::filesystem::remove(docs / "b");
  EXPECT_EQ(counts(index(home, "add " + quoted)),
            "indexed 0, unchanged 1, removed 1, without text 0, failed 0");
  EXPECT_EQ(index(home, "add --quiet " + quoted).output, "");
  EXPECT_EQ(counts(index(home, "add " + quoted + "/new " + quoted + " " + quoted)),
            "indexed 0, unchanged 1, removed 0, without text 0, failed 0");
}

TEST(IndexAdd, KeepsWhatItCannotLookAt) {
  const TestHome home;
  const auto docs = home.path() / "docs";
  for (const char* name : {"a", "listed/b", "closed/c", "open/d"}) home.writeFile(docs / name, "1");
  const std::string command = "add --nominate content '" + docs.string() + "'";
  ASSERT_EQ(index(home, command).status, 0);

  using std::filesystem::perms;
  std::filesystem::permissions(docs / "listed", perms::owner_read);  // its names, and no more
  std::filesystem::permissions(docs / "closed", perms::none);
  std::filesystem::remove(docs / "open/d");
  const Outcome outcome = index(home, command);
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(home.query("SELECT name FROM file JOIN mcp_exposure USING(path) ORDER BY name"),
            Rows({"a", "b", "c"}));
  for (const char* folder : {"/listed\n", "/closed\n"}) {
    const std::string line = "no permission to open: " + docs.string() + folder;
    EXPECT_NE(outcome.output.find(line), std::string::npos) << outcome.output;
  }
  for (const char* folder : {"listed", "closed"})
    std::filesystem::permissions(docs / folder, perms::owner_all);
}

TEST(IndexAdd, LeavesOutRootsThatTheIndexCannotName) {
  const TestHome home;
  home.writeFile(home.path() / "line\nbreak/a.txt", "1");
  home.writeFile(home.path() / "latin\xE9.txt", "1");
  const std::string base = "'" + home.path().string();
  const Outcome outcome = index(home, "add " + base + "/line\nbreak' " + base + "/latin\xE9.txt'");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.output.find("a name with a line break"), std::string::npos) << outcome.output;
}

TEST(IndexAdd, KeepsPassagesThatHaveAVector) {
  const TestHome home;
  home.writeFile(home.path() / "docs/---.txt", "-----\n");
  home.writeFile(home.path() / "docs/a.txt",
                 "First.\n\n" + std::string(2000, '-') + "\n\nSecond.\n");
  EXPECT_EQ(index(home, "add '" + home.path().string() + "/docs'").status, 0);
  EXPECT_EQ(home.query("SELECT name FROM file ORDER BY name"), Rows({"---.txt", "a.txt"}));
  EXPECT_EQ(home.query("SELECT count(*) = max(ord) + 1, min(length(vec)) FROM chunk"),
            Rows({"1|2048"}));
}

TEST(IndexAdd, CreatesWhatOnlyItsUserMayRead) {
  const TestHome home;
  std::filesystem::remove_all(home.norvastFolder());
  home.writeFile(home.path() / "docs/a.txt", "1");
  ASSERT_EQ(index(home, "access off").status, 0);
  ASSERT_EQ(index(home, "add '" + home.path().string() + "/docs'").status, 0);
  const auto others = std::filesystem::perms::group_all | std::filesystem::perms::others_all;
  for (const auto& path : {home.norvastFolder(), home.database()}) {
    EXPECT_EQ(std::filesystem::status(path).permissions() & others, std::filesystem::perms::none);
  }
}

TEST(IndexAdd, FillsEveryTableThatTheServerReads) {
  const TestHome home;
  const auto docs = home.path() / "docs";
  home.writeFile(docs / "garden.md",
                 "The garden pump is broken. Maria Keller will repair the pump.");
  home.writeFile(docs / "binary.bin", std::string("a\0b", 3));
  home.writeFile(docs / "latin.txt", "caf\xE9");
  const std::string command = "add --nominate content '" + docs.string() + "'";
  EXPECT_EQ(counts(index(home, command)),
            "indexed 3, unchanged 0, removed 0, without text 2, failed 0");
  EXPECT_EQ(
      home.query("SELECT summary, entities, method FROM analysis"),
      Rows{"The garden pump is broken. Maria Keller will repair the pump.|Maria Keller|text"});
  EXPECT_EQ(home.query("SELECT ord, length(text), length(vec) FROM chunk"), Rows{"0|61|2048"});
  EXPECT_EQ(home.query("SELECT count(*), min(length(vec)), max(length(vec)) FROM embedding"),
            Rows{"3|2048|2048"});

  ServerSession server(home);
  EXPECT_EQ(server.call("semantic_search", {{"query", "broken pumps"}, {"limit", 1}})
                .json()["results"][0]["path"],
            (docs / "garden.md").string());
  EXPECT_EQ(server.call("list_tags").json()[0], "Maria Keller");

  home.writeFile(docs / "garden.md", "The garden pump works. Nobody repairs it.");
  (void)index(home, command);
  EXPECT_EQ(home.query("SELECT c.text, a.entities FROM chunk c JOIN analysis a USING(path)"),
            Rows{"The garden pump works. Nobody repairs it.|"});
}

TEST(IndexCommands, SteerWhatTheServerShows) {
  const TestHome home;
  const auto docs = home.path() / "docs";
  for (const char* name : {"a.txt", "sub/b.txt", "sub2/c.txt"}) home.writeFile(docs / name, "text");
  const std::string base = "'" + docs.string() + "/";
  EXPECT_EQ(index(home, "status").status, 1);
  EXPECT_EQ(index(home, "nominate " + base + "a.txt'").status, 1);
  ASSERT_EQ(index(home, "add " + base + "'").status, 0);

  ServerSession server(home);
  const auto nominated = [&home] {
    return home.query("SELECT substr(path, -5), allow_content FROM mcp_exposure ORDER BY path");
  };
  EXPECT_EQ(index(home, "nominate " + base + "sub'").output,
            "nominated 1 file: " + docs.string() + "/sub\n");
  EXPECT_EQ(index(home, "nominate --content " + base + "a.txt' " + base + "sub2'").status, 0);
  EXPECT_EQ(nominated(), Rows({"a.txt|1", "b.txt|0", "c.txt|1"}));
  EXPECT_EQ(index(home, "nominate --metadata " + base + "a.txt'").status, 0);
  EXPECT_EQ(index(home, "withdraw " + base + "sub'").status, 0);
  EXPECT_EQ(nominated(), Rows({"a.txt|0", "c.txt|1"}));
  EXPECT_EQ(index(home, "withdraw " + base + "nowhere'").status, 1);
  EXPECT_EQ(index(home, "remove " + base + "sub2'").status, 0);
  EXPECT_EQ(nominated(), Rows{"a.txt|0"});
  EXPECT_EQ(home.query("SELECT count(*) FROM file"), Rows{"2"});

  EXPECT_EQ(index(home, "access off").output, "AI access is off\n");
  EXPECT_TRUE(server.call("list_files").isError);
  EXPECT_EQ(index(home, "access on").status, 0);
  EXPECT_EQ(index(home, "access on").status, 0);
  EXPECT_FALSE(server.call("list_files").isError);
  EXPECT_TRUE(server.call("search_library").isError);
  EXPECT_EQ(index(home, "library on").status, 0);
  EXPECT_FALSE(server.call("search_library").isError);
  EXPECT_EQ(index(home, "library off").status, 0);
  EXPECT_NE(index(home, "status").output.find("nominated             1\n"), std::string::npos);
}

TEST(IndexCommands, ShowTheTrailWithoutItsControlCharacters) {
  const TestHome home;
  home.createIndex(
      "INSERT INTO audit_event(ts,verb,object,result,severity) VALUES"
      "(0,'read','/a' || char(27,10,0x9B) || 'b','denied · sensitive path','deny'),"
      "(0,'list','offset 0','ok','ok'), (0,'tags','7 tags','ok','ok');");
  const std::string all = index(home, "audit").output;
  EXPECT_NE(all.find("/a\uFFFD\uFFFD\uFFFDb\n"), std::string::npos) << all;
  EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 3);
  const std::string last = index(home, "audit --last 2").output;
  EXPECT_EQ(std::count(last.begin(), last.end(), '\n'), 2);
  EXPECT_LT(last.find("offset 0"), last.find("7 tags"));
}

TEST(IndexCommands, RegisterTheServerBesideThem) {
  const TestHome home;
  const auto config = nlohmann::json::parse(index(home, "client-config").output);
  EXPECT_EQ(config["mcpServers"]["norvast"]["command"], NORVAST_MCP);
}

TEST(IndexCommands, AnswerAWrongCommandLineInOneLine) {
  const TestHome home;
  for (const char* arguments : {"", "add", "access", "access maybe", "audit --last x", "frobnicate",
                                "add --nominate everything /", "nominate --content --metadata /"}) {
    const Outcome outcome = index(home, arguments);
    EXPECT_EQ(outcome.status, 2) << arguments;
    EXPECT_EQ(std::count(outcome.output.begin(), outcome.output.end(), '\n'), 1) << outcome.output;
  }
  EXPECT_EQ(index(home, "add /no/such/folder").status, 1);
  for (const char* command : {"add", "nominate", "withdraw", "remove", "access", "library",
                              "status", "audit", "client-config"}) {
    const Outcome help = index(home, std::string(command) + " --help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.output.find("Example: norvast_index "), std::string::npos) << command;
  }
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
                          "user_version = 99"}) {
    std::filesystem::remove(home.database());
    home.execute(sql);
    const std::string before = fileBytes(home.database());
    const Outcome outcome = index(home, command);
    EXPECT_EQ(outcome.status, 1) << sql;
    EXPECT_NE(outcome.output.find("it is left as it is"), std::string::npos) << outcome.output;
    EXPECT_EQ(fileBytes(home.database()), before) << sql;
  }
  home.writeFile(home.database(), std::string(10000, 'x'));
  EXPECT_NE(index(home, command).output.find("is no database"), std::string::npos);
}

TEST(IndexAdd, LeavesTheLogOfAnotherDatabaseAsItIs) {
  const TestHome home;
  home.execute("PRAGMA journal_mode = WAL; CREATE TABLE file(path)");
  // As a program leaves it that was killed before its log was worked off.
  const TestHome other;
  const auto log = home.database().string() + "-wal";
  const Connection writer = Connection::openReadWrite(home.database());
  ASSERT_TRUE(Statement(writer, "INSERT INTO file VALUES('/a')").run());
  other.writeFile(other.database(), fileBytes(home.database()));
  other.writeFile(other.database().string() + "-wal", fileBytes(log));

  for (const char* command : {"add .", "nominate .", "remove .", "status", "audit"}) {
    (void)index(other, command);
    EXPECT_EQ(fileBytes(other.database()), fileBytes(home.database())) << command;
    EXPECT_EQ(fileBytes(other.database().string() + "-wal"), fileBytes(log)) << command;
  }
}

}  // namespace
}  // namespace norvast
