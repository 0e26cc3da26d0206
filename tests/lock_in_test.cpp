// The lock-in: what a process that has gone through it can still do, and what it cannot.
#include "extractor/lock_in.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <string>
#include <thread>
#include <vector>

#include "platform/descriptor.h"
#include "tests/test_home.h"

namespace norvast {
namespace {

struct Deed {
  const char* name;
  bool allowed;
  bool (*succeeds)(const std::string& folder);
};

bool opens(const std::string& path, int flags) {
  return static_cast<bool>(Descriptor(open(path.c_str(), flags | O_CLOEXEC, 0600)));
}

const Deed DEEDS[] = {
    {"read a permitted file", true,
     [](const std::string& folder) { return opens(folder + "/permitted/file", O_RDONLY); }},
    {"start a thread", true,
     [](const std::string&) {
       std::thread([] {}).join();
       return true;
     }},
    {"read /etc/passwd", false, [](const std::string&) { return opens("/etc/passwd", O_RDONLY); }},
    {"write a permitted file", false,
     [](const std::string& folder) { return opens(folder + "/permitted/file", O_WRONLY); }},
    {"truncate a permitted file", false,
     [](const std::string& folder) {
       return opens(folder + "/permitted/file", O_RDONLY | O_TRUNC);
     }},
    {"create a file", false,
     [](const std::string& folder) {
       return opens(folder + "/permitted/new", O_RDONLY | O_CREAT);
     }},
    {"remove a file", false,
     [](const std::string& folder) { return unlink((folder + "/permitted/file").c_str()) == 0; }},
    {"start a program", false,
     [](const std::string&) {
       (void)execl("/bin/true", "true", nullptr);
       return false;  // or status 0 is taken for it
     }},
    {"start a process", false,
     [](const std::string&) {
       const pid_t child = fork();
       if (child == 0) _exit(0);
       return child > 0;
     }},
    {"open a network socket", false,
     [](const std::string&) { return socket(AF_INET, SOCK_STREAM, 0) >= 0; }},
    {"signal its parent", false, [](const std::string&) { return kill(getppid(), 0) == 0; }},
    {"raise a limit", false,
     [](const std::string&) {
       const rlimit limit{RLIM_INFINITY, RLIM_INFINITY};
       return setrlimit(RLIMIT_CORE, &limit) == 0;
     }},
};

// What the child tells by its exit status.
enum Outcome : int { refused = 3, succeeded = 4, notLocked = 5 };

// Tries the deed in a child that is locked in, with one permitted folder.
int outcomeInside(const Deed& deed, const std::string& folder) {
  int ends[2];
  EXPECT_EQ(pipe(ends), 0);
  const Descriptor reading(ends[0]);
  const Descriptor writing(ends[1]);
  const pid_t child = fork();
  if (child == 0) {
    const std::vector<std::string> readable = {folder + "/permitted", folder + "/missing"};
    if (!limitExtractor(writing) || !lockIn(readable)) _exit(notLocked);
    _exit(deed.succeeds(folder) ? succeeded : refused);
  }
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

// Needs a kernel with seccomp and Landlock; what neither has cannot be tested.
TEST(LockIn, LeavesReadingAndComputingAlone) {
  const TestHome home;
  std::filesystem::create_directory(home.path() / "permitted");
  home.writeFile(home.path() / "permitted" / "file", "x");
  home.writeFile(home.path() / "file", "x");
  for (const Deed& deed : DEEDS) {
    EXPECT_EQ(outcomeInside(deed, home.path()), deed.allowed ? succeeded : refused) << deed.name;
  }
}

TEST(LockIn, LimitsMemoryTimeAndFiles) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const Descriptor reading(ends[0]);
  const Descriptor writing(ends[1]);
  const pid_t child = fork();
  if (child == 0) {
    if (!limitExtractor(writing)) _exit(notLocked);
    const auto most = [](__rlimit_resource resource) {
      rlimit limit{};
      (void)getrlimit(resource, &limit);
      return limit.rlim_max;
    };
    bool limited = most(RLIMIT_CPU) == 25 && most(RLIMIT_CORE) == 0 && most(RLIMIT_FSIZE) == 0;
#ifndef NORVAST_SANITIZED
    limited = limited && mmap(nullptr, std::size_t{768} << 20, PROT_READ,
                              MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) == MAP_FAILED;
#endif
    _exit(limited ? succeeded : refused);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(WEXITSTATUS(status), succeeded);
}

TEST(LockIn, EndsWithItsParent) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const Descriptor reading(ends[0]);
  Descriptor writing(ends[1]);
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

TEST(LockIn, FailsWhenNobodyReadsTheOutput) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const Descriptor writing(ends[1]);
  (void)close(ends[0]);
  const pid_t child = fork();
  if (child == 0) _exit(limitExtractor(writing) ? succeeded : refused);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(WEXITSTATUS(status), refused);
}

}  // namespace
}  // namespace norvast
