#include "companion/progress.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "companion/terminal.h"

namespace norvast {
namespace {

constexpr auto BETWEEN_DRAWINGS = std::chrono::milliseconds(100);
constexpr int BAR_WIDTH = 30;

std::string twoDigits(std::uint64_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

// "3:07" or "1:02:45" for a number of seconds.
std::string durationText(std::uint64_t seconds) {
  const std::string end = ":" + twoDigits(seconds % 60);
  const std::uint64_t minutes = seconds / 60;
  if (minutes < 60) return std::to_string(minutes) + end;
  return std::to_string(minutes / 60) + ":" + twoDigits(minutes % 60) + end;
}

double seconds(std::chrono::steady_clock::duration duration) {
  return std::chrono::duration<double>(duration).count();
}

std::string barText(double share) {
  std::string bar;
  for (int at = 0; at < BAR_WIDTH; ++at) bar += at < share * BAR_WIDTH ? "█" : "░";
  return bar;
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
  (void)std::fprintf(stderr, "\r\033[K%s %s of %s files, %.0f a second, %s left",
                     barText(shareDone_).c_str(), grouped(done_).c_str(), grouped(total_).c_str(),
                     static_cast<double>(done_) / passed,
                     durationText(static_cast<std::uint64_t>(std::ceil(left))).c_str());
  (void)std::fflush(stderr);
}

}  // namespace norvast
