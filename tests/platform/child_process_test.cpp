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

using Outcome = std::variant<std::string, ChildFailure>;
using Kind = ChildFailure::Kind;

std::chrono::steady_clock::time_point in(milliseconds time) {
  return std::chrono::steady_clock::now() + time;
}

Outcome outputOfScript(const std::string& script, milliseconds deadline = LONG,
                       const Descriptor& input = Descriptor(open("/dev/null",
                                                                 O_RDONLY | O_CLOEXEC))) {
  return outputOf({"/bin/sh", {"-c", script}, {"COLOUR=blue"}, in(deadline), 100'000}, input);
}

TEST(ChildProcess, GivesWhatAGoodProgramWrote) {
  const struct {
    const char* script;
    Outcome outcome;
  } rows[] = {
      {"printf text", "text"},
      {"exit 0", ""},
      {"head -c 100000 /dev/zero | tr '\\0' x", std::string(100'000, 'x')},
      {"printf %s \"$COLOUR$HOME\"", "blue"},
      {"printf error >&2; printf text", "text"},
      {"printf text; exec >&-; sleep 0.2", "text"},  // ends long after its output does
      {"printf text; exit 3", ChildFailure{Kind::exited, 3}},
      {"printf text; kill -9 $$", ChildFailure{Kind::killed, SIGKILL}},
      {"head -c 100001 /dev/zero", ChildFailure{Kind::wroteTooMuch}},
      {"cat /dev/zero", ChildFailure{Kind::wroteTooMuch}},
  };
  for (const auto& row : rows) EXPECT_EQ(outputOfScript(row.script), row.outcome) << row.script;
  EXPECT_FALSE(hasChildren());
}

TEST(ChildProcess, InheritsNoDescriptorBesideThree) {
  const Descriptor leaked(open("/dev/null", O_RDONLY));
  const Descriptor leakedHigh(fcntl(leaked.number(), F_DUPFD, 200));
  // ls itself opens the folder that it lists as number 3.
  EXPECT_EQ(outputOfScript("exec ls /proc/self/fd"), Outcome("0\n1\n2\n3\n"));
}

// Each of them would take a minute; one closes its output and stays.
TEST(ChildProcess, IsKilledAtItsDeadline) {
  for (const char* script :
       {"exec sleep 60", "printf text; exec sleep 60", "exec >&-; exec sleep 60"}) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(outputOfScript(script, milliseconds{100}), Outcome(ChildFailure{Kind::late}))
        << script;
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds{20}) << script;
    EXPECT_FALSE(hasChildren()) << script;
  }
}

TEST(ChildProcess, ThatDoesNotExistGivesNothing) {
  const Descriptor input(open("/dev/null", O_RDONLY | O_CLOEXEC));
  EXPECT_EQ(outputOf({"/no/such/program", {}, {}, in(LONG), 100}, input),
            Outcome(ChildFailure{Kind::notStarted}));
}

// A parent may have left the signal ignored, which would reap children before their status is read.
TEST(ChildProcess, IsReapedWhateverBecameOfItsSignal) {
  (void)std::signal(SIGCHLD, SIG_IGN);
  EXPECT_EQ(outputOfScript("printf text"), Outcome("text"));
  (void)std::signal(SIGCHLD, SIG_DFL);
}

TEST(ChildProcess, LeavesNothingBehindAfterAThousand) {
  const auto before = openDescriptors();
  for (int round = 0; round < 1'000; ++round) {
    const Descriptor input(open("/dev/null", O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(outputOf({round % 2 == 0 ? "/bin/true" : "/bin/false", {}, {}, in(LONG), 100}, input),
              round % 2 == 0 ? Outcome("") : Outcome(ChildFailure{Kind::exited, 1}));
  }
  EXPECT_EQ(openDescriptors(), before);
  EXPECT_FALSE(hasChildren());
}

}  // namespace
}  // namespace norvast
