// The lock-in: what a process that has gone through it can still do, and what it cannot.
#include "extractor/program/lock_in.h"

#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pthread.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "content/isolated_extraction.h"
#include "platform/descriptor.h"
#include "platform/regular_file.h"
#include "tests/harness/test_home.h"

namespace norvast {
using namespace extractor;

namespace {

// What a child tells by its exit status.
enum Outcome : int { refused = 3, succeeded = 4, notLocked = 5 };

// The exit status of a child that does this, or minus the signal that ended it.
int outcomeOf(const std::function<Outcome()>& deed) {
  const pid_t child = fork();
  if (child == 0) _exit(deed());
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

std::pair<Descriptor, Descriptor> openPipe() {
  int ends[2];
  EXPECT_EQ(pipe(ends), 0);
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

bool opens(const std::string& path, int flags) {
  return static_cast<bool>(Descriptor(open(path.c_str(), flags | O_CLOEXEC, 0600)));
}

rlim_t most(__rlimit_resource resource) {
  rlimit limit{};
  (void)getrlimit(resource, &limit);
  return limit.rlim_max;
}

void* newPage(int protection) {
  return mmap(nullptr, 4096, protection, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
}

bool executesWhatItWrote() {
  return mprotect(newPage(PROT_READ | PROT_WRITE), 4096, PROT_READ | PROT_EXEC) == 0;
}

bool computes() {
  std::vector<int> numbers(std::size_t{1} << 20, 1);  // beyond what is taken from the heap
  std::sort(numbers.begin(), numbers.end());
  return numbers.front() == 1;
}

bool startsThread() {
  pthread_t thread{};
  return pthread_create(
             &thread, nullptr, [](void* none) { return none; }, nullptr) == 0;
}

bool lists(const std::string& folder) {
  DIR* found = opendir(folder.c_str());
  return found != nullptr && readdir(found) != nullptr;
}

bool startsProcess() {
  const pid_t child = fork();
  if (child == 0) _exit(0);
  return child > 0;
}

struct Deed {
  const char* name;
  int withFolder;  // outcome where one folder may be read, or the negative of a signal
  int without;     // outcome where none may be
  std::function<bool()> succeeds;
};

// Needs a kernel with seccomp and Landlock; what neither has cannot be tested.
TEST(LockIn, LeavesReadingAndComputingAlone) {
  const TestHome home;
  const std::string folder = home.path() / "permitted";
  const std::string file = folder + "/file";
  const std::string other = home.path() / "other";
  home.writeFile(file, "x");
  home.writeFile(other, "x");
  struct stat status {};
  rlimit limit{};
  const Deed deeds[] = {
      {"compute in memory", succeeded, succeeded, computes},
      {"abort", -SIGABRT, -SIGABRT, []() -> bool { std::abort(); }},
      {"read a permitted file", succeeded, refused, [&] { return opens(file, O_RDONLY); }},
      {"read another file", refused, refused, [&] { return opens(other, O_RDONLY); }},
      {"read /etc/passwd", refused, refused, [] { return opens("/etc/passwd", O_RDONLY); }},
      {"look at a file", refused, refused, [&] { return stat(file.c_str(), &status) == 0; }},
      {"see that a file is", refused, refused, [&] { return access(file.c_str(), F_OK) == 0; }},
      {"hold a path", refused, refused, [&] { return opens(other, O_PATH); }},
      {"list a permitted folder", refused, refused, [&] { return lists(folder); }},
      {"write a permitted file", refused, refused, [&] { return opens(file, O_WRONLY); }},
      {"truncate a file", refused, refused, [&] { return opens(file, O_RDONLY | O_TRUNC); }},
      {"create a file", refused, refused, [&] { return opens(folder + "/new", O_CREAT); }},
      {"remove a file", refused, refused, [&] { return unlink(file.c_str()) == 0; }},
      {"map memory to execute", refused, refused, [] { return newPage(PROT_EXEC) != MAP_FAILED; }},
      {"execute what was written", refused, refused, executesWhatItWrote},
      {"start a thread", refused, refused, startsThread},
      {"start a process", refused, refused, startsProcess},
      // A program that was started would end with a status of its own.
      {"start a program", refused, refused, [] { return execl("/bin/true", "", nullptr) == 0; }},
      {"open a socket", refused, refused, [] { return socket(AF_INET, SOCK_STREAM, 0) >= 0; }},
      {"signal its parent", refused, refused, [] { return kill(getppid(), 0) == 0; }},
      {"ask for its parent's limits", refused, refused,
       [&] { return prlimit(getppid(), RLIMIT_NOFILE, nullptr, &limit) == 0; }},
      {"raise a limit", refused, refused,
       [] {
         const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
         return setrlimit(RLIMIT_CORE, &none) == 0;
       }},
  };
  const auto [reading, writing] = openPipe();
  const auto outcomeInside = [&output = writing](const Deed& deed,
                                                 const std::vector<std::string_view>& readable) {
    return outcomeOf([&] {
      if (!limitExtractor(output) || !lockIn(readable)) return notLocked;
      return deed.succeeds() ? succeeded : refused;
    });
  };
  for (const Deed& deed : deeds) {
    EXPECT_EQ(outcomeInside(deed, {folder, "/missing"}), deed.withFolder) << deed.name;
    EXPECT_EQ(outcomeInside(deed, {}), deed.without) << deed.name;
  }
}

// Has these calls fail with this error from now on, as a filter around a container does.
bool refuseCalls(const std::vector<int>& calls, int error) {
  const scmp_filter_ctx filter = seccomp_init(SCMP_ACT_ALLOW);
  const auto refused = static_cast<std::uint32_t>(SCMP_ACT_ERRNO(static_cast<unsigned>(error)));
  bool isAdded = filter != nullptr;
  for (const int call : calls) isAdded = isAdded && seccomp_rule_add(filter, refused, call, 0) == 0;
  const bool isLoaded = isAdded && seccomp_load(filter) == 0;
  seccomp_release(filter);
  return isLoaded;
}

struct RefusedLandlock {
  int call;
  int error;
  LockState state;
};

constexpr RefusedLandlock REFUSED_LANDLOCK[] = {
    {SCMP_SYS(landlock_create_ruleset), ENOSYS, LockState::landlockUnknown},
    {SCMP_SYS(landlock_create_ruleset), EOPNOTSUPP, LockState::landlockUnknown},
    {SCMP_SYS(landlock_create_ruleset), EPERM, LockState::landlockRefused},
    {SCMP_SYS(landlock_create_ruleset), ENOMEM, LockState::landlockRefused},
    {SCMP_SYS(landlock_add_rule), EPERM, LockState::landlockRefused},
    {SCMP_SYS(landlock_restrict_self), EPERM, LockState::landlockRefused},
};

TEST(LockIn, OpensNothingWhereLandlockDoesNotHold) {
  const TestHome home;
  const std::string folder = home.path() / "permitted";
  const std::string file = folder + "/file";
  home.writeFile(file, "x");
  const std::string pdf = TEST_DATA "/pdf/lines.pdf";
  for (const RefusedLandlock& row : REFUSED_LANDLOCK) {
    const auto outcome = [&](const std::function<bool()>& deed) {
      return outcomeOf([&] {
        if (!refuseCalls({row.call}, row.error)) return notLocked;
        return deed() ? succeeded : refused;
      });
    };
    const auto lockedIn = [&](const std::function<bool()>& deed) {
      const std::string_view readable = folder;
      return outcome([&] { return lockIn({&readable, 1}) == row.state && deed(); });
    };
    const std::string which = std::to_string(row.call) + ": " + strerror(row.error);
    EXPECT_EQ(lockedIn(computes), succeeded) << which;
    EXPECT_EQ(lockedIn([] { return opens("/etc/passwd", O_RDONLY); }), refused) << which;
    EXPECT_EQ(lockedIn([&] { return opens(file, O_RDONLY); }), refused) << which;
    // Whatever the filter of system calls lets pass, there is no descriptor for it.
    EXPECT_EQ(lockedIn([] { return most(RLIMIT_NOFILE) == 0; }), succeeded) << which;
    EXPECT_EQ(outcome([&] { return isolationLock() == row.state; }), succeeded) << which;
    EXPECT_EQ(outcome([&] { return isolatedPdfText(*openRegularFile(pdf), 9).index() == 0; }),
              succeeded)
        << which;
  }
}

TEST(LockIn, LimitsMemoryTimeAndFiles) {
  const auto [reading, writing] = openPipe();
  const int outcome = outcomeOf([&output = writing] {
    if (!limitExtractor(output)) return notLocked;
    bool limited = most(RLIMIT_CPU) == 25 && most(RLIMIT_CORE) == 0 && most(RLIMIT_FSIZE) == 0;
#ifndef NORVAST_SANITIZED
    limited = limited && mmap(nullptr, std::size_t{768} << 20, PROT_READ,
                              MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) == MAP_FAILED;
#endif
    return limited ? succeeded : refused;
  });
  EXPECT_EQ(outcome, succeeded);
}

TEST(LockIn, FailsWhenNobodyReadsTheOutput) {
  auto [reading, writing] = openPipe();
  reading = Descriptor();
  EXPECT_EQ(outcomeOf([&output = writing] { return limitExtractor(output) ? succeeded : refused; }),
            refused);
}

TEST(LockIn, EndsWithItsParent) {
  auto [reading, writing] = openPipe();
  const pid_t parent = fork();
  if (parent == 0) {
    if (fork() == 0) {
      (void)writing.write(limitExtractor(writing) ? "l" : "n");
    }
    (void)alarm(60);  // ends whoever outlives this test
    for (;;) (void)pause();
  }
  writing = Descriptor();
  char told = 0;
  ASSERT_EQ(reading.read({&told, 1}), 1U);
  EXPECT_EQ(told, 'l');
  (void)kill(parent, SIGKILL);
  ASSERT_EQ(waitpid(parent, nullptr, 0), parent);
  // The pipe ends when the child, which holds it open, is gone.
  pollfd wanted{reading.number(), POLLIN, 0};
  ASSERT_EQ(poll(&wanted, 1, 20'000), 1);
  EXPECT_EQ(reading.read({&told, 1}), 0U);
}

}  // namespace
}  // namespace norvast
