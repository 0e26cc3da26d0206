// What the user decided stays decided: rules, roots and what clients see by them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "indexer/decisions/moved_rules.h"
#include "indexer/decisions/rules.h"
#include "indexer/index/index_database.h"
#include "indexer/indexing/index_files.h"
#include "indexer/watching/moved_folder.h"
#include "platform/file_identity.h"
#include "tests/harness/file_bytes.h"
#include "tests/harness/index_command.h"
#include "tests/harness/test_home.h"

namespace norvast {
using namespace indexer;

namespace {

using Rows = std::vector<std::string>;

TEST(Rules, HoldForAllBelowUntilANearerOne) {
  Rules rules;
  rules.set("/a", RuleKind::content);
  rules.set("/a/b", RuleKind::withheld);
  rules.set("/a/b/c%_'d/e.txt", RuleKind::metadata);
  rules.set("/a0", RuleKind::leftOut);
  struct Row {
    const char* path;
    const char* holds;  // the path of the rule; empty for none
  };
  for (const auto& [path, holds] :
       {Row{"/a", "/a"}, Row{"/a/x", "/a"}, Row{"/a/b/x/y", "/a/b"}, Row{"/a/bc", "/a"},
        Row{"/a/b/c%_'d/e.txt", "/a/b/c%_'d/e.txt"}, Row{"/a/b/cXX'd/e.txt", "/a/b"},
        Row{"/a.txt", ""}, Row{"/", ""}, Row{"/A/x", ""}, Row{"/a0/x", "/a0"}}) {
    const auto rule = rules.holdingFor(path);
    EXPECT_EQ(rule ? rule->path : "", holds) << path;
  }
  EXPECT_EQ(rules.below("/a").size(), 2U);
  EXPECT_EQ(rules.below("/").size(), 4U);
  EXPECT_FALSE(rules.hasBelow("/a/b/c%_'d/e.txt"));
  rules.set("/", RuleKind::withheld);
  EXPECT_EQ(rules.holdingFor("/z")->path, "/");
  EXPECT_EQ(rules.below("/").size(), 4U);
}

// "WHERE:KIND" for each rule.
TEST(Rules, AreCarriedUnlessThatShowsMore) {
  struct Row {
    std::vector<Rule> rules;
    Rows carried;
  };
  using enum RuleKind;
  const std::vector<Row> rows = {
      {{{"/d", content}, {"/d/a", withheld}, {"/d/a/b", metadata}, {"/d/ab", leftOut}},
       {"/d/n/a:withheld", "/d/n/a/b:metadata"}},
      {{{"/d", withheld}, {"/d/a/x", content}}, {"/d/n/a/x:content"}},
      {{{"/d", content}, {"/d/n", withheld}, {"/d/a", metadata}, {"/d/a/x", content}}, {}},
      {{{"/d/n", leftOut}, {"/d/a", withheld}, {"/d/a/x", content}}, {}},
      {{{"/d/n/a", metadata}, {"/d/a", content}, {"/d/a/x", leftOut}}, {"/d/n/a/x:left out"}},
      {{{"/d/a", withheld}, {"/d/n/a", withheld}, {"/d/a/x", content}}, {"/d/n/a/x:content"}}};
  for (const Row& row : rows) {
    Rules rules;
    for (const Rule& rule : row.rules) rules.set(rule.path, rule.kind);
    Rows carried;
    for (const Rule& rule : carriedRules(rules, "/d/a", "/d/n/a")) {
      carried.push_back(rule.path + ":" + std::string(ruleName(rule.kind)));
    }
    EXPECT_EQ(carried, row.carried);
  }
}

class DecisionsTest : public testing::Test {
 protected:
  DecisionsTest() {
    for (const char* name : {"a", "private/s", "private/open/o", "old/x"}) write(name);
  }

  void write(const std::string& name) const { home.writeFile(docs + name, name); }

  // Runs a command on `names` in the folder of the documents; what it says.
  std::string run(const std::string& command, const std::string& names, int status = 0) const {
    const Outcome outcome = index(home, command + " " + names, docs);
    EXPECT_EQ(outcome.status, status) << outcome.output;
    return outcome.output;
  }

  Rows shown() const {
    return home.query("SELECT substr(path," + std::to_string(docs.size() + 1) +
                      "), allow_content FROM mcp_exposure ORDER BY path");
  }

  TestHome home;
  std::string docs = home.path().string() + "/it's 100%_docs/";
};

TEST_F(DecisionsTest, OutliveARefreshAndHoldForNewFiles) {
  run("add --nominate content", ".");
  run("withdraw", "private");
  write("b");
  write("private/new");
  EXPECT_NE(run("add --nominate content", ".")
                .find("1 folder below stays withheld: " + docs + "private; name it to change that"),
            std::string::npos);
  EXPECT_EQ(shown(), Rows({"a|1", "b|1", "old/x|1"}));

  run("nominate", "private/open");  // a rule below a rule below a rule
  run("remove", "old");
  write("old/y");
  run("update", "");
  EXPECT_EQ(shown(), Rows({"a|1", "b|1", "private/open/o|0"}));
  EXPECT_EQ(home.query("SELECT count(*) FROM file WHERE path LIKE '%/old/%'"), Rows{"0"});

  EXPECT_NE(run("rules", "").find("withheld          2  " + docs + "private\n"), std::string::npos);
  run("rules clear", "private");
  EXPECT_EQ(shown(), Rows({"a|1", "b|1", "private/new|1", "private/open/o|0", "private/s|1"}));
  EXPECT_NE(run("add", "old").find("withheld from now on"), std::string::npos);
  EXPECT_EQ(shown().size(), 5U);
  run("remove", ".");
  EXPECT_EQ(
      home.query("SELECT path FROM root UNION ALL SELECT path FROM rule UNION ALL SELECT path "
                 "FROM file UNION ALL SELECT path FROM mcp_exposure"),
      Rows());
}

TEST_F(DecisionsTest, FindWhatIsGoneClosedOrBehindALink) {
  run("add --nominate content", ".");
  std::filesystem::create_symlink(docs.substr(0, docs.size() - 1), home.path() / "link");
  std::filesystem::remove_all(docs + "private");
  run("withdraw", "../link/private/s");
  EXPECT_EQ(shown(), Rows({"a|1", "old/x|1", "private/open/o|1"}));
  std::filesystem::create_symlink(docs + "private", docs + "dangling");
  run("remove", "dangling/open");
  EXPECT_EQ(shown(), Rows({"a|1", "old/x|1"}));
  EXPECT_NE(run("add", "../link").find("following the link"), std::string::npos);
  std::filesystem::create_symlink("..", docs + "up");
  run("add", "up", 1);
  run("withdraw", "nowhere", 1);
  std::filesystem::permissions(docs + "old", std::filesystem::perms::none);
  run("withdraw", "../link/old/x/");
  std::filesystem::permissions(docs + "old", std::filesystem::perms::owner_all);
  EXPECT_EQ(shown(), Rows({"a|1"}));
  EXPECT_NE(run("withdraw", "/etc/passwd").find("the rule is kept"), std::string::npos);
}

// A root within a root is kept up with by itself, and what is decided about one holds in both.
TEST_F(DecisionsTest, HoldInRootsWithinRoots) {
  write(".hidden/h");
  run("add --nominate metadata", ".");
  run("add", ".hidden private");
  EXPECT_EQ(shown().size(), 5U);
  std::filesystem::remove(docs + ".hidden/h");
  std::filesystem::remove(docs + "private/s");
  run("update", "");
  EXPECT_EQ(shown(), Rows({"a|0", "old/x|0", "private/open/o|0"}));
  run("remove", "private");
  run("update", "");
  EXPECT_EQ(shown(), Rows({"a|0", "old/x|0"}));
  std::filesystem::rename(docs, home.path() / "elsewhere");
  EXPECT_NE(index(home, "update").output.find("what is known of it is kept"), std::string::npos);
  EXPECT_EQ(shown().size(), 2U);
}

// As a command leaves the index that is killed behind its decision, before it removed any file.
TEST_F(DecisionsTest, HideWhatAKilledRemovalLeft) {
  run("add", "private old");
  home.execute(
      "DELETE FROM root WHERE path LIKE '%/private';"
      "INSERT INTO removal SELECT path || '/private' FROM "
      "(SELECT substr(path, 1, length(path) - 4) AS path FROM root)");
  run("nominate", "private");
  EXPECT_EQ(shown(), Rows());
  run("update", "");
  EXPECT_EQ(home.query("SELECT name FROM file"), Rows{"x"});
  EXPECT_EQ(home.query("SELECT path FROM removal"), Rows());
}

TEST_F(DecisionsTest, LeaveOutWhatMatchesIsIgnoredOrACache) {
  for (const char* name : {"r/build/b", "r/x.log", "r/kept.log", "cache/c", "nocache/c", "t.tmp",
                           "drafts/d.txt", "drafts/x/e.txt"}) {
    write(name);
  }
  home.writeFile(docs + "r/.gitignore", "build/\n*.log\n");
  home.writeFile(docs + "cache/CACHEDIR.TAG", "Signature: 8a477f597d28d172789f06886806bc55\n");
  home.writeFile(docs + "nocache/CACHEDIR.TAG", "Signature: 8a477f597d28d172789f06886806bc5\n");
  ASSERT_EQ(std::system(("cd \"" + docs + "r\" && git init -q . && git add -f kept.log").c_str()),
            0);
  const std::string said =
      run("add --exclude '*.tmp' --exclude 'drafts/*.txt' --exclude old/ --exclude nothing", ".");
  EXPECT_NE(said.find("--exclude nothing: nothing matches it now"), std::string::npos) << said;
  run("add", "../Library", 0);  // holds the index itself
  EXPECT_EQ(home.query("SELECT substr(path," + std::to_string(docs.size() + 1) + ") FROM file"),
            Rows({"a", "drafts/x/e.txt", "nocache/CACHEDIR.TAG", "nocache/c", "private/open/o",
                  "private/s", "r/kept.log"}));
  run("add --no-gitignore --no-exclude '*.tmp'", ".");
  run("update", "");
  EXPECT_EQ(home.query("SELECT count(*) FROM file"), Rows{"10"});
  EXPECT_NE(run("add --exclude '*'", ".").find("nothing is left to index"), std::string::npos);
}

TEST_F(DecisionsTest, KeepWhyAFileHasNoText) {
  home.writeFile(docs + "bin\u202Ex.txt", std::string("a\0b", 3));
  std::filesystem::permissions(docs + "a", std::filesystem::perms::none);
  EXPECT_NE(run("add", ".", 3).find("without text            2"), std::string::npos);
  const std::string list = "no permission to read: " + docs + "a\n";
  const std::string binary = ": " + docs + "bin\uFFFDx.txt\n";
  const std::string said = run("status --without-text", "");
  EXPECT_NE(said.find(list), std::string::npos) << said;
  EXPECT_NE(said.find(binary), std::string::npos) << said;
  EXPECT_EQ(run("status --without-text", "a"), list);
  std::filesystem::permissions(docs + "a", std::filesystem::perms::owner_all);
  EXPECT_NE(run("update", "").find("indexed                 1"), std::string::npos);
  // A file that no reader of an earlier version could read is tried again.
  home.execute("UPDATE failure SET reader = 0");
  EXPECT_NE(run("update", "").find("indexed                 1"), std::string::npos);
  const std::string before = fileBytes(home.database());
  run("update", "");
  EXPECT_EQ(fileBytes(home.database()), before);  // nothing new, nothing written
}

TEST_F(DecisionsTest, HoldWhereAFolderIsMovedTo) {
  run("add --nominate content", ".");
  run("withdraw", "private");
  run("add --exclude '*.tmp'", "private/open");
  setenv("HOME", home.path().c_str(), 1);
  const auto opened = openIndex();
  const auto& connection = std::get<Connection>(opened);
  EXPECT_TRUE(moveRows(connection, docs + "old", docs + "private/older"));
  EXPECT_TRUE(moveRows(connection, docs + "private/open", docs + "opened"));
  EXPECT_FALSE(moveRows(connection, docs + "private", docs + "private/in"));
  EXPECT_EQ(shown(), Rows({"a|1"}));  // it was withheld with the folder around it
  EXPECT_EQ(home.query("SELECT kind FROM rule WHERE path LIKE '%/opened'"), Rows{"withheld"});
  EXPECT_EQ(home.query("SELECT root || pattern FROM exclusion"), Rows{docs + "opened*.tmp"});
  EXPECT_TRUE(moveRows(connection, docs + "private", docs + "p"));
  EXPECT_EQ(shown(), Rows({"a|1"}));
  for (const char* table : {"file", "analysis", "embedding", "chunk"}) {
    EXPECT_EQ(home.query(std::string("SELECT count(*) FROM ") + table +
                         " WHERE path LIKE '%/older/x' OR path LIKE '%/opened/o'"),
              Rows{"2"});
  }
}

// Before the run that indexes it there, and while that reads another file.
TEST_F(DecisionsTest, HoldForWhatWasMovedToAnotherRoot) {
  if (!fileIdentity(docs)) GTEST_SKIP() << "the file system keeps no times of birth";
  const std::string more = home.path().string() + "/more";
  home.writeFile(more + "/m", "1");
  run("add --nominate content", ". ../more");
  run("withdraw", "private old");
  std::filesystem::rename(docs + "private", more + "/before");
  write("a new file");
  setenv("HOME", home.path().c_str(), 1);
  const auto opened = openIndex();
  const auto& connection = std::get<Connection>(opened);
  std::optional<SentenceEmbedding> none;
  const std::vector<std::string> roots{docs.substr(0, docs.size() - 1), more};
  (void)indexFiles(connection, none, roots, nullptr, [&] {
    std::error_code done;
    std::filesystem::rename(docs + "old", more + "/meanwhile", done);
    return false;
  });
  EXPECT_EQ(home.query("SELECT count(*) FROM file WHERE path LIKE '%/more/%'"), Rows{"4"});
  EXPECT_EQ(home.query("SELECT name FROM mcp_exposure JOIN file USING (path)"),
            Rows({"a", "a new file", "m"}));
}

// A decision about a name is about what lies there now: what lay there before keeps its own.
TEST_F(DecisionsTest, AreAboutWhatLiesThereNow) {
  if (!fileIdentity(docs)) GTEST_SKIP() << "the file system keeps no times of birth";
  for (const char* lifting : {"nominate --content", "rules clear"}) {
    run("add --nominate content", ".");
    run("withdraw", "a private");
    std::filesystem::rename(docs + "a", docs + "b");
    std::filesystem::rename(docs + "private", docs + "hidden");
    write("a");
    write("private/new");
    run(lifting, "a private");
    const std::string said = run("update", "");
    EXPECT_NE(said.find("moved out of a withheld folder stay withheld: "), std::string::npos)
        << said;
    EXPECT_EQ(shown(), Rows({"a|1", "old/x|1", "private/new|1"})) << lifting;
    run("nominate --content", "b hidden/s hidden/open/o");
    run("update", "");
    EXPECT_EQ(shown().size(), 6U) << lifting;
    run("remove", ".");
    std::filesystem::remove_all(docs + "private");
    std::filesystem::rename(docs + "hidden", docs + "private");
    std::filesystem::remove(docs + "b");
  }
}

// A link at the old place leads to the new one.
TEST_F(DecisionsTest, HoldBehindALinkForWhatLiesThere) {
  if (!fileIdentity(docs)) GTEST_SKIP() << "the file system keeps no times of birth";
  const std::string folder = docs.substr(0, docs.size() - 1);
  write("shown/deep/a");
  run("add --nominate content", ". shown/deep");
  run("withdraw", "private");
  std::filesystem::rename(docs + "shown", docs + "was shown");
  std::filesystem::create_directory_symlink("private", docs + "shown");
  write("private/deep/withheld");
  run("update", "", 3);
  EXPECT_EQ(shown(), Rows({"a|1", "old/x|1", "was shown/deep/a|1"}));
  std::filesystem::rename(folder, folder + "2");
  std::filesystem::create_directory_symlink(folder + "2", folder);
  run("add --nominate content", ".", 0);
  EXPECT_EQ(home.query("SELECT name FROM mcp_exposure JOIN file USING (path) WHERE path LIKE '" +
                       home.path().string() + "/%2/%'"),
            Rows({"a", "x", "a"}));
}

TEST_F(DecisionsTest, HoldForFilesThatARunHasReadBefore) {
  run("add --nominate content", ".");
  for (const char* name : {"a new file", "b.key", "private/keys/k"}) write(name);
  setenv("HOME", home.path().c_str(), 1);
  const auto opened = openIndex();
  const auto& connection = std::get<Connection>(opened);
  std::optional<SentenceEmbedding> none;
  (void)indexFiles(connection, none, {docs.substr(0, docs.size() - 1)}, nullptr, [this] {
    run("add --exclude '*.key' --exclude '/*/keys'", ".");
    return false;
  });
  EXPECT_EQ(shown(), Rows({"a|1", "a new file|1", "old/x|1", "private/open/o|1", "private/s|1"}));
}

// What is not shown stays so under its new name; only a later decision about that changes it.
TEST_F(DecisionsTest, HoldForWhatWasMovedUnwatched) {
  if (!fileIdentity(docs)) GTEST_SKIP() << "the file system keeps no times of birth";
  run("add --nominate content", ".");
  run("withdraw", "private a");
  run("remove", "old");
  std::filesystem::rename(docs + "old", home.path() / "elsewhere");
  run("update", "");
  std::filesystem::rename(docs + "private", docs + "renamed");
  std::filesystem::rename(docs + "a", docs + "renamed.txt");
  std::filesystem::rename(home.path() / "elsewhere", docs + "older");
  write("private/new one of that name");
  const std::string said = run("update", "");
  EXPECT_NE(said.find("renamed (withheld, as it was at " + docs + "private)"), std::string::npos)
      << said;
  EXPECT_EQ(shown(), Rows());
  std::filesystem::rename(docs + "renamed", docs + "open");
  run("nominate", "open");
  std::filesystem::remove_all(docs + "older");
  write("older/x");
  run("update", "");
  run("rules clear", "older");
  run("update", "");
  EXPECT_EQ(shown(), Rows({"older/x|1", "open/open/o|0", "open/s|0"}));
}

}  // namespace
}  // namespace norvast
