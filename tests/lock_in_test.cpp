// The lock-in: what a process that has gone through it can still do, and what it cannot.
#include "extractor/lock_in.h"

#include <arpa/inet.h>
#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "platform/descriptor.h"
#include "tests/test_home.h"

namespace norvast {
namespace {

// What the child tells by its exit status.
enum Outcome : int { refused = 3, succeeded = 4, notLocked = 5 };

struct Deed {
  const char* name;
  int withFolder;  // outcome where one folder may be read, or the negative of a signal
  int without;     // outcome where none may be
  bool (*succeeds)(const std::string& folder);
};

bool opens(const std::string& path, int flags) {
  return static_cast<bool>(Descriptor(open(path.c_str(), flags | O_CLOEXEC, 0600)));
}

const Deed DEEDS[] = {
    {"compute in memory", succeeded, succeeded,
     [](const std::string&) {
       std::vector<int> numbers(std::size_t{10} << 20, 1);
       std::sort(numbers.begin(), numbers.end());
       return numbers.front() == 1;
     }},
    {"abort", -SIGABRT, -SIGABRT, [](const std::string&) -> bool { std::abort(); }},
    {"read a permitted file", succeeded, refused,
     [](const std::string& folder) { return opens(folder + "/permitted/file", O_RDONLY); }},
    {"start a thread", refused, refused,
     [](const std::string&) {
       pthread_t thread{};
       return pthread_create(
                  &thread, nullptr, [](void* none) { return none; }, nullptr) == 0;
     }},
    {"see whether a permitted file exists", refused, refused,
     [](const std::string& folder) {
       struct stat status {};
       const std::string file = folder + "/permitted/file";
       return stat(file.c_str(), &status) == 0 || access(file.c_str(), F_OK) == 0;
     }},
    {"hold the path of a file", refused, refused,
     [](const std::string& folder) { return opens(folder + "/file", O_PATH); }},
    {"list a permitted folder", refused, refused,
     [](const std::string& folder) {
       DIR* found = opendir((folder + "/permitted").c_str());
       return found != nullptr && readdir(found) != nullptr;
     }},
    {"map memory to execute", refused, refused,
     [](const std::string&) {
       return mmap(nullptr, 4096, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) !=
              MAP_FAILED;
     }},
    {"execute what was written", refused, refused,
     [](const std::string&) {
       void* page = mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
       return mprotect(page, 4096, PROT_READ | PROT_EXEC) == 0;
     }},
    {"ask for its parent's limits", refused, refused,
     [](const std::string&) {
       rlimit limit{};
       return prlimit(getppid(), RLIMIT_NOFILE, nullptr, &limit) == 0;
     }},
    {"read /etc/passwd", refused, refused,
     [](const std::string&) { return opens("/etc/passwd", O_RDONLY); }},
    {"write a permitted file", refused, refused,
     [](const std::string& folder) { return opens(folder + "/permitted/file", O_WRONLY); }},
    {"truncate a permitted file", refused, refused,
     [](const std::string& folder) {
       return opens(folder + "/permitted/file", O_RDONLY | O_TRUNC);
     }},
    {"create a file", refused, refused,
     [](const std::string& folder) {
       return opens(folder + "/permitted/new", O_RDONLY | O_CREAT);
     }},
    {"remove a file", refused, refused,
     [](const std::string& folder) { return unlink((folder + "/permitted/file").c_str()) == 0; }},
    {"start a program", refused, refused,
     [](const std::string&) {
       (void)execl("/bin/true", "true", nullptr);
       return false;  // or status 0 is taken for it
     }},
    {"start a process", refused, refused,
     [](const std::string&) {
       const pid_t child = fork();
       if (child == 0) _exit(0);
       return child > 0;
     }},
    {"open a network socket", refused, refused,
     [](const std::string&) { return socket(AF_INET, SOCK_STREAM, 0) >= 0; }},
    {"signal its parent", refused, refused,
     [](const std::string&) { return kill(getppid(), 0) == 0; }},
    {"raise a limit", refused, refused,
     [](const std::string&) {
       const rlimit limit{RLIM_INFINITY, RLIM_INFINITY};
       return setrlimit(RLIMIT_CORE, &limit) == 0;
     }},
};

// Tries the deed in a child that is locked in, but for the permitted places.
int outcomeInside(const Deed& deed, const std::string& folder,
                  const std::vector<std::string_view>& readable) {
  int ends[2];
  EXPECT_EQ(pipe(ends), 0);
  const Descriptor reading(ends[0]);
  const Descriptor writing(ends[1]);
  const pid_t child = fork();
  if (child == 0) {
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
  const std::string permitted = home.path() / "permitted";
  for (const Deed& deed : DEEDS) {
    EXPECT_EQ(outcomeInside(deed, home.path(), {permitted, "/missing"}), deed.withFolder)
        << deed.name;
    EXPECT_EQ(outcomeInside(deed, home.path(), {}), deed.without) << deed.name;
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
