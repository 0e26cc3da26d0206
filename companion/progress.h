// Progress: how far the indexing is, on one line of a terminal.
#pragma once

#include <chrono>
#include <cstdint>

#include "companion/time_left.h"

namespace norvast {

enum class Verbosity { normal, quiet };  // draws its progress on a terminal, or not

// Draws on standard error, a few times a second: a bar, files done, files a second, time left.
// Draws nothing where no person is looking, or when told to be quiet.
class Progress {
 public:
  explicit Progress(Verbosity verbosity);
  ~Progress();  // clears the line
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // A file of the run; all of them are expected before the first step.
  void expect(const FileKind& kind, std::int64_t bytes);

  // One more file is done.
  void step(const FileKind& kind, std::int64_t bytes);

 private:
  using Clock = std::chrono::steady_clock;

  void draw(Clock::time_point now);

  TimeLeft timeLeft_;
  std::uint64_t total_ = 0;
  std::uint64_t done_ = 0;
  double shareDone_ = 0;  // of the time, never less than it was
  bool isShown_;
  Clock::time_point start_ = Clock::now();
  Clock::time_point stepped_ = start_;
  Clock::time_point drawn_ = start_;
};

}  // namespace norvast
