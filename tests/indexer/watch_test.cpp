// A watching indexer: what changes on disk is in the index soon after, and nothing else is.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <future>
#include <string>
#include <thread>
#include <vector>

#include "indexer/index/watch_lock.h"
#include "platform/file_identity.h"
#include "tests/harness/index_command.h"
#include "tests/harness/static_model_files.h"
#include "tests/harness/test_home.h"

namespace norvast {
using namespace indexer;

namespace {

namespace fs = std::filesystem;
using Rows = std::vector<std::string>;

class Watch : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"a", "sub/b", "sub/deep/c"}) home.writeFile(docs / name, name);
    ASSERT_EQ(index(home, "add --nominate content docs").status, 0);
    start();
    // All folders are watched before the first of them is looked through.
    home.writeFile(docs / "probe", "new");
    expect("SELECT count(*) FROM file WHERE name = 'probe'", {"1"});
    fs::remove(docs / "probe");
    expectNominated({"a", "sub/b", "sub/deep/c"});
  }
  void TearDown() override { (void)end(); }

  // Ends by itself.
  Outcome ended() { return ended_.get(); }

  void start() {
    ended_ = std::async(std::launch::async, [this] { return index(home, "watch"); });
  }

  // Ends as it is told to.
  Outcome end() {
    if (!ended_.valid()) return {};
    signal(SIGTERM);
    return ended_.get();
  }
  void signal(int number) const {
    (void)kill(static_cast<pid_t>(watchingProcess(home.norvastFolder()).value_or(0)), number);
  }

  // Whether it is so within the time that a slow machine may take.
  template <typename Condition>
  static bool comes(Condition isSo) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!isSo()) {
      if (std::chrono::steady_clock::now() > end) return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
  }
  void expect(const std::string& sql, const Rows& rows) const {
    (void)comes([&] { return home.query(sql) == rows; });
    EXPECT_EQ(home.query(sql), rows) << sql;
  }
  void expectNominated(const Rows& names) const {
    expect("SELECT substr(path, " + std::to_string(docs.string().size() + 2) +
               ") FROM mcp_exposure ORDER BY path",
           names);
  }

  TestHome home;
  fs::path docs = home.path() / "docs";

 private:
  std::future<Outcome> ended_;
};

TEST_F(Watch, FollowsWhatIsSavedMovedAndRemoved) {
  // A folder that moves keeps its rows: this summary is in no file.
  home.execute("UPDATE analysis SET summary = 'kept' WHERE path LIKE '%/c'");
  fs::rename(docs / "sub", docs / "moved");
  expectNominated({"a", "moved/b", "moved/deep/c"});
  expect("SELECT summary FROM analysis WHERE path LIKE '%/moved/deep/c'", {"kept"});

  // What is withheld stays so, whatever it is called.
  EXPECT_EQ(index(home, "withdraw docs/moved/b").status, 0);
  fs::rename(docs / "moved/b", docs / "moved/c");
  fs::rename(docs / "moved", docs / "again");
  expectNominated({"a", "again/deep/c"});
  expect("SELECT count(*) FROM file WHERE path LIKE '%/again/c'", {"1"});
  expectNominated({"a", "again/deep/c"});
  fs::rename(docs / "again/c", docs / "again/b");
  fs::rename(docs / "again", docs / "moved");
  expectNominated({"a", "moved/deep/c"});

  home.writeFile(docs / "moved/deep/new/folders/d", "seen");
  home.writeFile(docs / ".hidden", "not seen");
  fs::rename(docs / "a", docs / "z");
  fs::remove(docs / "moved/b");
  expectNominated({"moved/deep/c", "moved/deep/new/folders/d", "z"});

  home.writeFile(docs / ".git/HEAD", "ref: refs/heads/main\n");
  fs::rename(docs / "moved", home.path() / "elsewhere");
  expectNominated({"z"});
}

// As it is started in the background before anything was added.
TEST_F(Watch, BeginsWithAnEmptyIndex) {
  EXPECT_EQ(end().status, 0);
  EXPECT_EQ(index(home, "remove docs").status, 0);
  start();
  EXPECT_TRUE(comes([&] { return watchingProcess(home.norvastFolder()).has_value(); }));
  EXPECT_EQ(index(home, "add --nominate content docs").status, 0);
  home.writeFile(docs / "sub/first", "seen at once");
  expectNominated({"a", "sub/b", "sub/deep/c", "sub/first"});
}

TEST_F(Watch, KeepsWhatMovesOutOfAWithheldFolderWithheld) {
  if (!fileIdentity(docs)) GTEST_SKIP() << "the file system keeps no times of birth";
  EXPECT_EQ(index(home, "withdraw docs/sub").status, 0);
  fs::rename(docs / "sub/b", docs / "b");
  fs::rename(docs / "sub/deep", docs / "deep");
  home.writeFile(docs / "z", "shown");
  expect("SELECT count(*) FROM file WHERE path LIKE '%/docs/b' OR path LIKE '%/docs/deep/c'",
         {"2"});
  expectNominated({"a", "z"});
  EXPECT_EQ(index(home, "nominate --content docs/b").status, 0);
  expectNominated({"a", "b", "z"});
}

TEST_F(Watch, TakesUpWhatOthersDecide) {
  EXPECT_EQ(index(home, "withdraw docs/sub").status, 0);
  home.writeFile(docs / "sub/new", "not shown");
  expect("SELECT count(*) FROM file WHERE path LIKE '%/sub/new'", {"1"});
  expectNominated({"a"});

  home.writeFile(home.path() / "more/first", "1");
  EXPECT_EQ(index(home, "add more").status, 0);
  home.writeFile(home.path() / "more/second", "2");
  expect("SELECT name FROM file WHERE path LIKE '%/more/%' ORDER BY name", {"first", "second"});

  const Outcome second = index(home, "watch");
  EXPECT_EQ(second.status, 1);
  EXPECT_NE(second.output.find("watches this index already"), std::string::npos);
}

TEST_F(Watch, EndsWhenItsIndexIsReplaced) {
  const Outcome other = index(home, "status");
  EXPECT_EQ(other.status, 0) << other.output;
  fs::create_directory(home.path() / "away");
  fs::rename(home.database(), home.path() / "away/norvast.sqlite");
  const Outcome outcome = ended();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.output.find("moved away or replaced"), std::string::npos) << outcome.output;
}

TEST_F(Watch, EmbedsWithTheModelThatIsThereNow) {
  const std::string scheme = "SELECT value FROM setting WHERE name = 'embedding_scheme'";
  const fs::path model = home.norvastFolder() / "model";
  const auto written = fs::last_write_time(docs / "a");
  for (const float turn : {1.0F, -1.0F}) {
    const Rows before = home.query(scheme);
    home.writeFile(model / "tokenizer.json", tinyTokenizer());
    home.writeFile(model / "model.safetensors", tinyTable(turn));
    fs::last_write_time(model / "model.safetensors", written);
    home.writeFile(docs / "a", std::to_string(turn));
    EXPECT_TRUE(comes([&] { return home.query(scheme) != before; })) << turn;
  }
  fs::remove_all(model);
  home.writeFile(docs / "a", "without");
  expect(scheme, {"norvast-words-2"});
}

// While it stands still, more happens than the system keeps events for.
TEST_F(Watch, LooksThroughAllFoldersWhenEventsWereLost) {
  signal(SIGSTOP);
  for (int round = 0; round < 9'000; ++round) {
    home.writeFile(docs / (round % 2 == 0 ? "even" : "odd"), std::to_string(round));
  }
  home.writeFile(docs / "sub/last", "seen all the same");
  signal(SIGCONT);
  expectNominated({"a", "even", "odd", "sub/b", "sub/deep/c", "sub/last"});
  const Outcome outcome = end();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.output.find("more changed at once"), std::string::npos) << outcome.output;
}

}  // namespace
}  // namespace norvast
