// The table of docs/decisions.md is kept, with a run after each step and with a watching indexer.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <future>
#include <regex>
#include <string>
#include <thread>
#include <vector>

#include "indexer/index/watch_lock.h"
#include "platform/file_identity.h"
#include "tests/harness/file_bytes.h"
#include "tests/harness/index_command.h"
#include "tests/harness/test_home.h"

namespace norvast {
using namespace indexer;

namespace {

using Rows = std::vector<std::string>;
using Clock = std::chrono::steady_clock;

struct Row {
  std::string line;
  std::string decision;
  Rows steps;
  Rows shown;  // "path|1", or "path|0" without the text
};

std::vector<Row> rowsOfTheTable() {
  const std::string page = fileBytes(std::string(PROJECT) + "/docs/decisions.md");
  const std::regex line(R"(\| `([^`|]*)` \| (`[^|]*) \| ([^|]*) \|\n)");
  const std::regex quoted("`([^`]*)`( without its text)?");
  std::vector<Row> rows;
  for (std::sregex_iterator at(page.begin(), page.end(), line), end; at != end; ++at) {
    Row row{at->str(), (*at)[1], {}, {}};
    const std::string steps = (*at)[2];
    const std::string shown = (*at)[3];
    for (std::sregex_iterator step(steps.begin(), steps.end(), quoted); step != end; ++step) {
      row.steps.push_back((*step)[1]);
    }
    for (std::sregex_iterator file(shown.begin(), shown.end(), quoted); file != end; ++file) {
      row.shown.push_back((*file)[1].str() + ((*file)[2].matched ? "|0" : "|1"));
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

class DecisionsTable : public testing::Test {
 protected:
  void run(const std::string& command) const {
    const Outcome outcome = index(home, command, folder);
    EXPECT_EQ(outcome.status, 0) << command << ": " << outcome.output;
  }

  Rows shown() const {
    return home.query(
        "SELECT substr(path," + std::to_string(folder.size() + 1) +
        "), allow_content FROM mcp_exposure WHERE path NOT LIKE '%/probe%' ORDER BY 1");
  }

  // Brings each row about in a folder of its own; `settle` has the index follow each step.
  template <typename Settle>
  void expectTable(Settle settle) {
    const auto rows = rowsOfTheTable();
    EXPECT_GE(rows.size(), 20U);
    for (std::size_t number = 0; number < rows.size(); ++number) {
      const Row& row = rows[number];
      folder = home.path().string() + "/row" + std::to_string(number) + "/";
      for (const char* name : {"docs/s", "private/s"}) home.writeFile(folder + name, name);
      run("add --nominate content .");
      settle();
      run(row.decision);
      for (const std::string& step : row.steps) {
        EXPECT_EQ(std::system(("cd \"" + folder + "\" && " + step).c_str()), 0) << step;
        settle();
      }
      // A file may be read a moment after the one that was written last.
      const auto end = Clock::now() + std::chrono::seconds(30);
      while (shown() != row.shown && Clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
      }
      EXPECT_EQ(shown(), row.shown) << row.line;
      run("remove .");
    }
  }

  TestHome home;
  std::string folder;
};

TEST_F(DecisionsTable, HoldsWithARunAfterEachStep) {
  if (!fileIdentity(home.path())) GTEST_SKIP() << "the file system keeps no times of birth";
  expectTable([this] { run("update"); });
}

// A file that is written last is indexed last: when it is there, so is all that happened before.
TEST_F(DecisionsTable, HoldsWhileWatched) {
  if (!fileIdentity(home.path())) GTEST_SKIP() << "the file system keeps no times of birth";
  home.writeFile(home.path() / "first/file", "1");
  ASSERT_EQ(index(home, "add first").status, 0);
  auto ended = std::async(std::launch::async, [this] { return index(home, "watch"); });
  int probes = 0;
  expectTable([&] {
    const std::string probe = "probe" + std::to_string(++probes);
    const auto end = Clock::now() + std::chrono::seconds(30);
    home.writeFile(folder + probe, probe);
    while (home.query("SELECT count(*) FROM mcp_exposure WHERE path LIKE '%/" + probe + "'") !=
           Rows{"1"}) {
      ASSERT_LT(Clock::now(), end) << probe;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  });
  (void)kill(static_cast<pid_t>(watchingProcess(home.norvastFolder()).value_or(0)), SIGTERM);
  EXPECT_EQ(ended.get().status, 0);
}

}  // namespace
}  // namespace norvast
