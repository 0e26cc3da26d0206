#include "companion/progress.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "companion/progress_line.h"
#include "companion/terminal.h"

namespace norvast {
namespace {

constexpr auto BETWEEN_DRAWINGS = std::chrono::milliseconds(100);

double seconds(std::chrono::steady_clock::duration duration) {
  return std::chrono::duration<double>(duration).count();
}

}  // namespace

Progress::Progress(Verbosity verbosity)
    : isShown_(verbosity == Verbosity::normal && isErrorTerminal()) {}

Progress::~Progress() {
  if (isShown_) (void)std::fputs("\r\033[K", stderr);
}

void Progress::expect(const FileKind& kind, std::int64_t bytes) {
  ++total_;
  timeLeft_.expect(kind, bytes);
}

void Progress::step(const FileKind& kind, std::int64_t bytes) {
  ++done_;
  const auto now = Clock::now();
  timeLeft_.finish(kind, bytes, seconds(now - stepped_));
  stepped_ = now;
  if (!isShown_ || now - drawn_ < BETWEEN_DRAWINGS) return;
  drawn_ = now;
  draw(now);
}

void Progress::draw(Clock::time_point now) {
  const double passed = std::max(seconds(now - start_), 1e-3);
  const double left = timeLeft_.seconds();
  shareDone_ = std::max(shareDone_, passed / (passed + left));
  const std::string line =
      progressLine({shareDone_, done_, total_, static_cast<double>(done_) / passed,
                    static_cast<std::uint64_t>(std::ceil(left))},
                   errorTerminalColumns());
  (void)std::fprintf(stderr, "\r\033[K%s", line.c_str());
  (void)std::fflush(stderr);
}

}  // namespace norvast
