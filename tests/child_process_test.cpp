// Child processes: what comes back from good ones, and that bad ones leave nothing behind.
#include "platform/child_process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <iterator>

namespace norvast {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds LONG{30'000};

std::ptrdiff_t openDescriptors() {
  const std::filesystem::directory_iterator numbers("/proc/self/fd");
  return std::distance(begin(numbers), end(numbers));
}

bool hasChildren() { return waitpid(-1, nullptr, WNOHANG) >= 0 || errno != ECHILD; }

std::optional<std::string> outputOfScript(
    const std::string& script, milliseconds deadline = LONG,
    const Descriptor& input = Descriptor(open("/dev/null", O_RDONLY | O_CLOEXEC))) {
  return outputOf({"/bin/sh", {"-c", script}, {"COLOUR=blue"}, deadline, 100'000}, input);
}

TEST(ChildProcess, GivesWhatAGoodProgramWrote) {
  const struct {
    const char* script;
    std::optional<std::string> output;
  } rows[] = {
      {"printf text", "text"},
      {"exit 0", ""},
      {"head -c 100000 /dev/zero | tr '\\0' x", std::string(100'000, 'x')},
      {"printf %s \"$COLOUR$HOME\"", "blue"},
      {"printf error >&2; printf text", "text"},
      {"printf text; exec >&-; sleep 0.2", "text"},  // ends long after its output does
      {"printf text; exit 1", std::nullopt},
      {"printf text; kill -9 $$", std::nullopt},
      {"head -c 100001 /dev/zero", std::nullopt},
      {"cat /dev/zero", std::nullopt},
  };
  for (const auto& row : rows) EXPECT_EQ(outputOfScript(row.script), row.output) << row.script;
  EXPECT_FALSE(hasChildren());
}

TEST(ChildProcess, InheritsNoDescriptorBesideThree) {
  const Descriptor leaked(open("/dev/null", O_RDONLY));
  const Descriptor leakedHigh(fcntl(leaked.number(), F_DUPFD, 200));
  // ls itself opens the folder that it lists as number 3.
  EXPECT_EQ(outputOfScript("exec ls /proc/self/fd"), "0\n1\n2\n3\n");
}

// Each of them would take a minute; one closes its output and stays.
TEST(ChildProcess, IsKilledAtItsDeadline) {
  for (const char* script :
       {"exec sleep 60", "printf text; exec sleep 60", "exec >&-; exec sleep 60"}) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(outputOfScript(script, milliseconds{100}), std::nullopt) << script;
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds{20}) << script;
    EXPECT_FALSE(hasChildren()) << script;
  }
}

TEST(ChildProcess, ThatDoesNotExistGivesNothing) {
  const Descriptor input(open("/dev/null", O_RDONLY | O_CLOEXEC));
  EXPECT_EQ(outputOf({"/no/such/program", {}, {}, LONG, 100}, input), std::nullopt);
}

// A parent may have left the signal ignored, which would reap children before their status is read.
TEST(ChildProcess, IsReapedWhateverBecameOfItsSignal) {
  (void)std::signal(SIGCHLD, SIG_IGN);
  EXPECT_EQ(outputOfScript("printf text"), "text");
  (void)std::signal(SIGCHLD, SIG_DFL);
}

TEST(ChildProcess, LeavesNothingBehindAfterAThousand) {
  const auto before = openDescriptors();
  for (int round = 0; round < 1'000; ++round) {
    const Descriptor input(open("/dev/null", O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(outputOf({round % 2 == 0 ? "/bin/true" : "/bin/false", {}, {}, LONG, 100}, input),
              round % 2 == 0 ? std::optional<std::string>("") : std::nullopt);
  }
  EXPECT_EQ(openDescriptors(), before);
  EXPECT_FALSE(hasChildren());
}

}  // namespace
}  // namespace norvast
