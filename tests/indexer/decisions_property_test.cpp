// Random commands against a small model of the rules, some of them killed and some at once: at no
// moment is a file shown that the rules withhold. NORVAST_STEPS=100000 makes it as long as one
// likes.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <map>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "store/connection.h"
#include "store/statement.h"
#include "tests/harness/test_home.h"

namespace norvast {
namespace {

constexpr int STEPS = 60;

bool isWithin(const std::string& path, const std::string& folder) {
  return path == folder || path.starts_with(folder + "/");
}

struct Model {
  std::set<std::string> roots;
  std::map<std::string, std::string> rules;  // kind by path

  bool operator==(const Model&) const = default;

  std::string kindFor(const std::string& path) const {
    std::string nearest;
    std::string kind;
    for (const auto& [place, itsKind] : rules) {
      if (!isWithin(path, place) || place.size() < nearest.size()) continue;
      nearest = place;
      kind = itsKind;
    }
    return kind;
  }

  bool isInRoot(const std::string& path) const {
    return std::any_of(roots.begin(), roots.end(),
                       [&](const std::string& root) { return isWithin(path, root); });
  }

  bool isInRootBelow(const std::string& path, const std::string& folder) const {
    return std::any_of(roots.begin(), roots.end(), [&](const std::string& root) {
      return isWithin(path, root) && isWithin(root, folder);
    });
  }

  // "1" or "0" as mcp_exposure has it, or nothing where clients see nothing.
  std::string exposureOf(const std::string& path) const {
    const std::string kind = kindFor(path);
    return kind == "content" ? "1" : kind == "metadata" ? "0" : "";
  }
};

using Command = std::vector<std::string>;  // the arguments; the last one is the path

Model after(Model model, const Command& command) {
  const std::string& path = command.back();
  if (command[0] == "add") {
    model.roots.insert(path);
    if (command.size() > 2) model.rules[path] = command[2];
    if (model.kindFor(path) == "left out") model.rules[path] = "withheld";
  } else if (command[0] == "nominate") {
    model.rules[path] = command[1] == "--content" ? "content" : "metadata";
  } else if (command[0] == "withdraw") {
    model.rules[path] = "withheld";
  } else if (command[0] == "rules") {
    model.rules.erase(path);
  } else if (command[0] == "remove") {
    const Model before = model;
    const auto isBelow = [&path](const auto& place) { return isWithin(place, path); };
    const bool hadRoots = std::erase_if(model.roots, isBelow) > 0;
    // Outside of the roots that go, nothing is shown by it that was not.
    if (hadRoots) {
      std::erase_if(model.rules, [&](const auto& rule) {
        const bool isNomination = rule.second == "content" || rule.second == "metadata";
        return isBelow(rule.first) && (isNomination || before.isInRootBelow(rule.first, path));
      });
    }
    if (!hadRoots || model.isInRoot(path)) model.rules[path] = "left out";
  }
  return model;
}

// What the index holds in one moment: its decisions, and which files are shown how.
struct Moment {
  Model model;
  std::map<std::string, std::string> shown;
};

Moment look(const Connection& index) {
  Moment moment;
  Statement begin(index, "BEGIN");
  (void)begin.run();
  Statement roots(index, "SELECT path FROM root");
  while (roots.step()) moment.model.roots.insert(roots.text(0));
  Statement rules(index, "SELECT path, kind FROM rule");
  while (rules.step()) moment.model.rules[rules.text(0)] = rules.text(1);
  Statement shown(index, "SELECT path, allow_content FROM mcp_exposure");
  while (shown.step()) moment.shown[shown.text(0)] = shown.text(1);
  (void)Statement(index, "COMMIT").run();
  return moment;
}

class DecisionsProperty : public testing::Test {
 protected:
  DecisionsProperty() {
    // The two with an accent are composed and decomposed: different names, as the system has it.
    for (const char* name :
         {"", "/p", "/p/q", "/p/q/r", "/100%_x", "/\u00e9", "/e\u0301", "/it's"}) {
      places.push_back(base + name);
      for (const char* file : {"/1.txt", "/2.txt"}) files.push_back(places.back() + file);
    }
    for (const std::string& file : files) home.writeFile(file, "A text about gardens.");
    places.push_back(files.front());
    (void)finish(start({"add", places[2]}));
    expected = after(expected, {"add", places[2]});
    observer = Connection::openReadOnly(home.database());
  }

  pid_t start(const Command& command) const {
    std::vector<std::string> arguments = {NORVAST_INDEX};
    arguments.insert(arguments.end(), command.begin(), command.end());
    std::vector<char*> words;
    words.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    std::string homeFolder = "HOME=" + home.path().string();
    char* environment[] = {homeFolder.data(), nullptr};
    posix_spawn_file_actions_t quiet;
    posix_spawn_file_actions_init(&quiet);
    for (const int number : {STDOUT_FILENO, STDERR_FILENO}) {
      posix_spawn_file_actions_addopen(&quiet, number, "/dev/null", O_WRONLY, 0);
    }
    pid_t process = -1;
    EXPECT_EQ(posix_spawn(&process, NORVAST_INDEX, &quiet, nullptr, words.data(), environment), 0);
    posix_spawn_file_actions_destroy(&quiet);
    return process;
  }

  static int finish(pid_t process) {
    int status = 0;
    waitpid(process, &status, 0);
    return status;
  }

  std::size_t below(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
  }

  Command anyCommand() {
    const std::vector<Command> verbs = {{"add"},      {"add", "--nominate", "content"},
                                        {"nominate"}, {"add", "--nominate", "metadata"},
                                        {"withdraw"}, {"nominate", "--content"},
                                        {"withdraw"}, {"rules", "clear"},
                                        {"remove"}};
    Command command = verbs[below(verbs.size())];
    command.push_back(places[below(places.size())]);
    return command;
  }

  // One command that is let run or killed, or two at once; the index then is as one order of those
  // that were kept leaves it.
  void step() {
    const Command first = anyCommand();
    const Command second = anyCommand();
    const pid_t process = start(first);
    std::vector<Model> possible = {after(expected, first)};
    const std::size_t chance = below(4);
    if (chance == 0) {
      usleep(static_cast<useconds_t>(below(40'000)));
      (void)kill(process, SIGKILL);
      possible.push_back(expected);
    } else if (chance == 1) {
      (void)finish(start(second));
      possible = {after(possible[0], second), after(after(expected, second), first)};
    }
    (void)finish(process);
    const Model found = look(observer).model;
    EXPECT_TRUE(std::find(possible.begin(), possible.end(), found) != possible.end())
        << testing::PrintToString(first) << testing::PrintToString(second);
    expected = found;
  }

  void expectUpToDate() {
    (void)finish(start({"update"}));
    std::map<std::string, std::string> shown;
    for (const std::string& file : files) {
      const std::string exposure = expected.exposureOf(file);
      if (expected.isInRoot(file) && !exposure.empty()) shown[file] = exposure;
    }
    EXPECT_EQ(look(observer).shown, shown);
  }

  TestHome home;
  std::string base = home.path().string() + "/docs";
  std::vector<std::string> places;
  std::vector<std::string> files;
  Model expected;
  std::mt19937 random{7};
  Connection observer;
};

TEST_F(DecisionsProperty, NeverShowWhatIsWithheld) {
  std::atomic<bool> isOver = false;
  std::atomic<int> looks = 0;
  std::thread watcher([&] {
    const Connection index = Connection::openReadOnly(home.database());
    for (; !isOver; ++looks) {
      const Moment moment = look(index);
      for (const auto& [path, exposure] : moment.shown) {
        ASSERT_EQ(exposure, moment.model.exposureOf(path)) << path;
        ASSERT_TRUE(moment.model.isInRoot(path)) << path;
      }
    }
  });
  const char* wanted = std::getenv("NORVAST_STEPS");
  const int steps = wanted == nullptr ? STEPS : std::atoi(wanted);
  for (int at = 1; at <= steps && !HasFailure(); ++at) {
    step();
    if (at % 10 == 0) expectUpToDate();
  }
  isOver = true;
  watcher.join();
  EXPECT_GT(looks, steps);
}

}  // namespace
}  // namespace norvast
