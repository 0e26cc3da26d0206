// What the program says of itself, held to what it does: completions, manual and documents.
#include <fcntl.h>
#include <gtest/gtest.h>

#include <chrono>
#include <regex>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "indexer/commands/client_config.h"
#include "platform/child_process.h"
#include "platform/descriptor.h"
#include "tests/harness/file_bytes.h"
#include "tests/harness/index_command.h"
#include "tests/harness/test_home.h"

namespace norvast {
using namespace indexer;

namespace {

using Words = std::set<std::string>;

const std::string ROOT = PROJECT;

Words matches(const std::string& text, const std::string& pattern) {
  Words words;
  const std::regex regex(pattern);
  for (std::sregex_iterator at(text.begin(), text.end(), regex), end; at != end; ++at) {
    words.insert((*at)[1]);
  }
  return words;
}

// The text from behind `start` to `end`.
std::string part(const std::string& text, const std::string& start, const std::string& end) {
  const std::size_t from = text.find(start);
  if (from == std::string::npos) return {};
  return text.substr(from + start.size(), text.find(end, from) - from - start.size());
}

Words commands(const TestHome& home) {
  return matches(part(index(home, "--help").output, "Subcommands:\n", "\n\n"),
                 "(?:^|\n)  ([a-z-]+)");
}

Words options(const TestHome& home, const std::string& command) {
  return matches(index(home, command + " --help").output, "\n  (?:-h,)?(--[a-z-]+)");
}

// What bash offers for the words so far, the last of which is to be completed.
Words inBash(const std::vector<std::string>& words) {
  std::vector<std::string> arguments{
      "-c",
      "cd / && . \"$0\"; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _norvast_index; "
      "printf '\\n%s' \"${COMPREPLY[@]}\"",
      ROOT + "/indexer/commands/completions/norvast_index.bash"};
  arguments.insert(arguments.end(), words.begin(), words.end());
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  const Descriptor nothing(open("/dev/null", O_RDONLY | O_CLOEXEC));
  const auto offered = outputOf({"/bin/bash", arguments, {}, deadline, 65536}, nothing);
  if (!std::holds_alternative<std::string>(offered)) return {"bash failed"};
  return matches(std::get<std::string>(offered), "\n([a-z-]+)");
}

TEST(Completions, OfferEachCommandAndItsOptions) {
  const TestHome home;
  const std::string zsh = fileBytes(ROOT + "/indexer/commands/completions/_norvast_index");
  const std::string fish = fileBytes(ROOT + "/indexer/commands/completions/norvast_index.fish");
  const Words all = commands(home);
  ASSERT_TRUE(all.contains("add"));
  EXPECT_EQ(inBash({"norvast_index", ""}), all);
  EXPECT_EQ(matches(part(zsh, "commands=(", "\n  )"), "'([a-z-]+):"), all);
  EXPECT_EQ(matches(fish, "use_subcommand -a ([a-z-]+)"), all);
  for (const std::string& command : all) {
    Words expected = options(home, command);
    EXPECT_EQ(inBash({"norvast_index", command, "-"}), expected) << command;
    expected.erase("--help");  // everywhere
    EXPECT_EQ(matches(part(zsh, "\n        " + command + ")", ";;"), "(--[a-z-]+)\\["), expected)
        << command;
    Words inFish;
    for (const auto& name : matches(fish, "from " + command + "' -l ([a-z-]+)")) {
      inFish.insert("--" + name);
    }
    EXPECT_EQ(inFish, expected) << command;
  }
}

TEST(Manual, NamesEachCommandAndItsOptions) {
  const TestHome home;
  const std::string page =
      std::regex_replace(fileBytes(ROOT + "/man/norvast_index.1"), std::regex("\\\\-"), "-");
  for (const std::string& command : commands(home)) {
    EXPECT_NE(page.find(".TP\n.B " + command + "\n"), std::string::npos) << command;
    const std::string synopsis = part(page, "\n.B norvast_index " + command, "\n.br");
    Words named = matches(synopsis, "(--[a-z-]+)");
    named.insert("--help");
    EXPECT_EQ(named, options(home, command)) << command;
  }
}

TEST(Clients, AreTheSameInTheProgramTheDocumentsAndTheCompletions) {
  const TestHome home;
  const std::vector<std::string> names = clientNames();
  const Words all(names.begin(), names.end());
  std::string rows;
  std::string inOneLine;
  for (const std::string& name : names) {
    std::string place(clientConfig(name, "")->place);
    // A path is marked as code in the document.
    place = std::regex_replace(place, std::regex("^\\S+"), "`$&`");
    rows += "| `" + name + "` | " + place + " |\n";
    inOneLine += (inOneLine.empty() ? "" : " ") + name;
  }
  EXPECT_NE(fileBytes(ROOT + "/docs/using.md").find(rows), std::string::npos) << rows;
  EXPECT_EQ(inBash({"norvast_index", "client-config", "--client", ""}), all);
  for (const char* file : {"_norvast_index", "norvast_index.fish"}) {
    EXPECT_NE(fileBytes(ROOT + "/indexer/commands/completions/" + file).find(inOneLine),
              std::string::npos);
  }
}

TEST(CommandLine, SaysWhatItIsAndWhatIsWrong) {
  const TestHome home;
  EXPECT_EQ(index(home, "--version").output, "norvast_index " VERSION "\n");
  EXPECT_NE(index(home, "add --help").output.find("--no-exclude PATTERN"), std::string::npos);
  struct Row {
    const char* arguments;
    const char* objection;
  };
  for (const Row& row : {Row{"audit --last -3", "--last: -3 is no number of events"},
                         Row{"updte", "there is no command \"updte\"; did you mean \"update\"?"},
                         Row{"frobnicate", "there is no command frobnicate, but add, update, "}}) {
    const Outcome outcome = index(home, row.arguments);
    EXPECT_EQ(outcome.status, 2) << row.arguments;
    EXPECT_TRUE(outcome.output.starts_with(std::string("norvast_index: ") + row.objection))
        << outcome.output;
  }
}

}  // namespace
}  // namespace norvast
