#include "platform/stop_signal.h"

#include <sys/signalfd.h>

#include <chrono>
#include <csignal>

namespace norvast {

std::optional<StopSignal> StopSignal::open() {
  sigset_t signals{};
  if (sigemptyset(&signals) != 0 || sigaddset(&signals, SIGTERM) != 0 ||
      sigaddset(&signals, SIGINT) != 0 || sigprocmask(SIG_BLOCK, &signals, nullptr) != 0) {
    return std::nullopt;
  }
  Descriptor arrival(signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
  if (!arrival) return std::nullopt;
  return StopSignal(std::move(arrival));
}

bool StopSignal::hasCome() const { return arrival_.waitForInput(std::chrono::steady_clock::now()); }

}  // namespace norvast
