#include "indexer/console/progress.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "indexer/console/progress_line.h"
#include "indexer/console/terminal.h"

namespace norvast::indexer {
namespace {

constexpr auto BETWEEN_DRAWINGS = std::chrono::milliseconds(100);

double seconds(std::chrono::steady_clock::duration duration) {
  return std::chrono::duration<double>(duration).count();
}

}  // namespace

Progress::Progress(Verbosity verbosity)
    : isShown_(verbosity == Verbosity::normal && isErrorTerminal()) {}

Progress::~Progress() { clear(); }

void Progress::begin(const std::vector<FileWork>& files) {
  timeLeft_ = TimeLeft();
  for (const FileWork& file : files) timeLeft_.expect(file.kind, file.bytes);
  total_ = files.size();
  done_ = 0;
  shareDone_ = 0;
  start_ = finished_ = drawn_ = Clock::now();
}

void Progress::finish(const FileWork& file) {
  ++done_;
  const auto now = Clock::now();
  timeLeft_.finish(file.kind, file.bytes, seconds(now - finished_));
  finished_ = now;
  if (done_ == total_) return clear();
  if (!isShown_ || now - drawn_ < BETWEEN_DRAWINGS) return;
  drawn_ = now;
  draw(now);
}

void Progress::clear() const {
  if (isShown_) (void)std::fputs("\r\033[K", stderr);
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

}  // namespace norvast::indexer
