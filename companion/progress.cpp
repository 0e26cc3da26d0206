#include "companion/progress.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "companion/terminal.h"

namespace norvast {
namespace {

constexpr auto BETWEEN_DRAWINGS = std::chrono::milliseconds(100);
constexpr std::uint64_t BAR_WIDTH = 30;

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

}  // namespace

Progress::Progress(std::uint64_t total, bool isQuiet)
    : total_(total), isShown_(!isQuiet && total > 0 && isErrorTerminal()) {}

Progress::~Progress() {
  if (isShown_) (void)std::fputs("\r\033[K", stderr);
}

void Progress::step() {
  ++done_;
  const auto now = Clock::now();
  if (!isShown_ || now - drawn_ < BETWEEN_DRAWINGS) return;
  drawn_ = now;
  draw(now);
}

void Progress::draw(Clock::time_point now) const {
  const double seconds = std::chrono::duration<double>(now - start_).count();
  const double rate = static_cast<double>(done_) / std::max(seconds, 1e-3);
  const double left = static_cast<double>(total_ - std::min(done_, total_)) / rate;
  const std::uint64_t filled = BAR_WIDTH * std::min(done_, total_) / total_;
  std::string bar;
  for (std::uint64_t at = 0; at < BAR_WIDTH; ++at) bar += at < filled ? "█" : "░";
  (void)std::fprintf(stderr, "\r\033[K%s %s of %s files, %.0f a second, %s left", bar.c_str(),
                     grouped(done_).c_str(), grouped(total_).c_str(), rate,
                     durationText(static_cast<std::uint64_t>(left)).c_str());
  (void)std::fflush(stderr);
}

}  // namespace norvast
