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
#include <optional>
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

// Killed children that the kernel has not let go yet: they end some time, and are reaped then.
std::vector<pid_t>& leftBehind() {
  static std::vector<pid_t> children;
  return children;
}

// True when there is nothing left to reap of the child; then `status` is its wait status.
bool reap(pid_t child, int* status) {
  pid_t found = -1;
  do {
    found = waitpid(child, status, WNOHANG);
  } while (found < 0 && errno == EINTR);
  return found != 0;
}

// A started child, killed and reaped by its owner at the latest.
class Child {
 public:
  Child(const ChildCommand& command, const FileActions& actions) {
    std::erase_if(leftBehind(), [](pid_t child) { return reap(child, nullptr); });
    // Were the signal ignored, as a parent may have left it, the status would be lost.
    (void)std::signal(SIGCHLD, SIG_DFL);
    std::vector<std::string> arguments = command.arguments;
    arguments.insert(arguments.begin(), command.program);
    std::vector<std::string> environment = command.environment;
    pid_t started = -1;
    if (posix_spawn(&started, command.program.c_str(), actions.get(), nullptr,
                    pointers(arguments).data(), pointers(environment).data()) == 0) {
      id_ = started;
      exited_ = Descriptor(static_cast<int>(syscall(SYS_pidfd_open, id_, 0)));
    }
  }
  ~Child() {
    if (id_ < 0) return;
    (void)kill(id_, SIGKILL);
    if (!endsBy(Clock::now() + REAPING_TIME)) leftBehind().push_back(id_);
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  bool isStarted() const { return id_ >= 0; }

  // Waits until the started child has exited, but not beyond `end`. Nothing when it did so by
  // itself, with status 0.
  std::optional<ChildFailure> failureBy(Clock::time_point end) {
    if (!endsBy(end)) return ChildFailure{ChildFailure::Kind::late};
    if (WIFSIGNALED(status_)) return ChildFailure{ChildFailure::Kind::killed, WTERMSIG(status_)};
    if (!WIFEXITED(status_)) return ChildFailure{ChildFailure::Kind::exited};
    if (WEXITSTATUS(status_) == 0) return std::nullopt;
    return ChildFailure{ChildFailure::Kind::exited, WEXITSTATUS(status_)};
  }

 private:
  // Waits for the child's exit, but not beyond `end`, and reaps it.
  bool endsBy(Clock::time_point end) {
    if (exited_) (void)exited_.waitForInput(end);
    while (!reap(id_, &status_)) {
      if (exited_ || Clock::now() >= end) return false;
      std::this_thread::sleep_for(BETWEEN_LOOKS);
    }
    id_ = -1;
    return true;
  }

  static std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (std::string& text : texts) result.push_back(text.data());
    result.push_back(nullptr);
    return result;
  }

  pid_t id_ = -1;
  Descriptor exited_;  // can be read from then on; none where the kernel has no such thing
  int status_ = -1;
};

// All that comes until the other end is closed.
std::variant<std::string, ChildFailure> readAll(const Descriptor& from,
                                                const ChildCommand& command) {
  std::string bytes;
  for (;;) {
    if (!from.waitForInput(command.deadline)) return ChildFailure{ChildFailure::Kind::late};
    const std::size_t start = bytes.size();
    bytes.resize(start + BYTES_A_READ);
    const std::size_t count = from.read(std::span(bytes).subspan(start)).value_or(0);
    if (start + count > command.limitBytes) return ChildFailure{ChildFailure::Kind::wroteTooMuch};
    bytes.resize(start + count);
    if (count == 0) return bytes;
  }
}

}  // namespace

std::variant<std::string, ChildFailure> outputOf(const ChildCommand& command,
                                                 const Descriptor& input) {
  auto pipe = makePipe();
  FileActions actions;
  if (!pipe || !actions.connect(input, pipe->writeEnd)) return ChildFailure{};

  Child child(command, actions);
  pipe->writeEnd = Descriptor();  // the child's is the only one: its exit closes it
  if (!child.isStarted()) return ChildFailure{};
  auto output = readAll(pipe->readEnd, command);
  if (std::holds_alternative<ChildFailure>(output)) return output;
  if (const auto failure = child.failureBy(command.deadline)) return *failure;
  return output;
}

}  // namespace norvast
