#include "platform/descriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>

namespace norvast {
namespace {

// Where they can only be tried one by one: a limit without an end would take hours.
constexpr rlim_t MOST_DESCRIPTORS = rlim_t{1} << 16;

// True when a failed transfer is to be tried again. A client may have made our end non-blocking:
// then it waits until the descriptor is ready for `events`.
bool tryAgain(int number, short events) {
  if (errno == EINTR) return true;
  if (errno != EAGAIN) return false;
  pollfd wanted{number, events, 0};
  return poll(&wanted, 1, -1) >= 0 || errno == EINTR;
}

}  // namespace

Descriptor::~Descriptor() {
  if (number_ >= 0) (void)close(number_);  // nothing was promised about what is still unwritten
}

std::optional<std::size_t> Descriptor::read(std::span<char> into) const {
  for (;;) {
    const ssize_t count = ::read(number_, into.data(), into.size());
    if (count >= 0) return static_cast<std::size_t>(count);
    if (!tryAgain(number_, POLLIN)) return std::nullopt;
  }
}

std::optional<std::size_t> Descriptor::readAtOnce(std::span<char> into) const {
  for (;;) {
    const ssize_t count = ::read(number_, into.data(), into.size());
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) return std::nullopt;
  }
}

bool Descriptor::waitForInput(std::chrono::steady_clock::time_point end) const {
  pollfd wanted{number_, POLLIN, 0};
  for (;;) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    const int ready = poll(&wanted, 1, static_cast<int>(std::max<std::int64_t>(left.count(), 0)));
    if (ready > 0) return true;
    if (ready == 0 || errno != EINTR) return false;
  }
}

bool Descriptor::write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t count = ::write(number_, bytes.data(), bytes.size());
    if (count >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (!tryAgain(number_, POLLOUT)) {
      return false;
    }
  }
  return true;
}

void keepStandardDescriptorsOpen() {
  for (int number = 0; number <= 2; ++number) {
    // The lowest free number is taken, which is this one.
    if (fcntl(number, F_GETFD) < 0) (void)open("/dev/null", O_RDWR);
  }
}

void closeInheritedDescriptors() {
  constexpr unsigned FIRST = STDERR_FILENO + 1;
  if (close_range(FIRST, ~0U, 0) == 0) return;
  // A kernel before 5.9, or a filter that does not know the call.
  rlimit limit{};
  if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
  const auto end = static_cast<int>(std::min<rlim_t>(limit.rlim_cur, MOST_DESCRIPTORS));
  for (int number = FIRST; number < end; ++number) (void)close(number);
}

void ignoreBrokenPipes() { (void)std::signal(SIGPIPE, SIG_IGN); }

}  // namespace norvast
