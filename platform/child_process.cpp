#include "platform/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <span>
#include <thread>

namespace norvast {
namespace {

using Clock = std::chrono::steady_clock;

// Where the kernel has no descriptor for a process that could be waited for.
constexpr std::chrono::milliseconds BETWEEN_LOOKS{1};

constexpr std::size_t BYTES_A_READ = std::size_t{1} << 16;

struct Pipe {
  Descriptor readEnd;
  Descriptor writeEnd;
};

std::optional<Pipe> makePipe() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
  return Pipe{Descriptor(ends[0]), Descriptor(ends[1])};
}

// What the child does with its descriptors before the program begins.
class FileActions {
 public:
  FileActions() { valid_ = posix_spawn_file_actions_init(&actions_) == 0; }
  ~FileActions() { (void)posix_spawn_file_actions_destroy(&actions_); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;

  bool connect(const Descriptor& input, const Descriptor& output) {
    return valid_ &&
           posix_spawn_file_actions_adddup2(&actions_, input.number(), STDIN_FILENO) == 0 &&
           posix_spawn_file_actions_adddup2(&actions_, output.number(), STDOUT_FILENO) == 0 &&
           posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0) ==
               0 &&
           // Ours close themselves; what our own parent left open must not get through either.
           posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1) == 0;
  }
  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
  bool valid_ = false;
};

// Waits until there is something to read, or the end of it. False when the time is over first.
bool waitForInput(const Descriptor& from, Clock::time_point end) {
  pollfd wanted{from.number(), POLLIN, 0};
  for (;;) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    const int ready = poll(&wanted, 1, static_cast<int>(std::max<std::int64_t>(left, 0)));
    if (ready > 0) return true;
    if (ready == 0 || errno != EINTR) return false;
  }
}

// A started child, killed and reaped by its owner at the latest.
class Child {
 public:
  Child(const ChildCommand& command, const FileActions& actions) {
    // Were the signal ignored, as a parent may have left it, the status would be lost.
    (void)std::signal(SIGCHLD, SIG_DFL);
    std::vector<std::string> arguments = command.arguments;
    arguments.insert(arguments.begin(), command.program);
    std::vector<std::string> environment = command.environment;
    pid_t started = -1;
    if (posix_spawn(&started, command.program.c_str(), actions.get(), nullptr,
                    pointers(arguments).data(), pointers(environment).data()) == 0) {
      id_ = started;
    }
  }
  ~Child() {
    if (id_ >= 0) (void)reap();
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  // Waits until the child has exited, but not beyond `end`, and makes sure of it. True when it
  // exited by itself, with status 0.
  bool endsWell(Clock::time_point end) {
    if (id_ < 0) return false;
    const Descriptor exited(static_cast<int>(syscall(SYS_pidfd_open, id_, 0)));
    if (exited) {
      (void)waitForInput(exited, end);
    } else {
      while (!hasExited() && Clock::now() < end) std::this_thread::sleep_for(BETWEEN_LOOKS);
    }
    return reap();
  }

 private:
  bool hasExited() const {
    siginfo_t found{};
    return waitid(P_PID, static_cast<id_t>(id_), &found, WEXITED | WNOHANG | WNOWAIT) != 0 ||
           found.si_pid == id_;
  }

  static std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (std::string& text : texts) result.push_back(text.data());
    result.push_back(nullptr);
    return result;
  }

  // The signal changes nothing for a child that has exited.
  bool reap() {
    (void)kill(id_, SIGKILL);
    int status = -1;
    while (waitpid(id_, &status, 0) < 0 && errno == EINTR) {
    }
    id_ = -1;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

  pid_t id_ = -1;
};

// All that comes until the other end is closed.
std::optional<std::string> readAll(const Descriptor& from, std::size_t limit,
                                   Clock::time_point end) {
  std::string bytes;
  for (;;) {
    if (!waitForInput(from, end)) return std::nullopt;
    const std::size_t start = bytes.size();
    bytes.resize(start + BYTES_A_READ);
    const auto count = from.read(std::span(bytes).subspan(start));
    if (!count || start + *count > limit) return std::nullopt;
    bytes.resize(start + *count);
    if (*count == 0) return bytes;
  }
}

}  // namespace

std::optional<std::string> outputOf(const ChildCommand& command, const Descriptor& input) {
  const auto end = Clock::now() + command.deadline;
  auto pipe = makePipe();
  FileActions actions;
  if (!pipe || !actions.connect(input, pipe->writeEnd)) return std::nullopt;

  Child child(command, actions);
  pipe->writeEnd = Descriptor();  // the child's is the only one: its exit closes it
  auto output = readAll(pipe->readEnd, command.limitBytes, end);
  if (!output || !child.endsWell(end)) return std::nullopt;
  return output;
}

}  // namespace norvast
