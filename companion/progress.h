// Progress: how far the indexing is, on one line of a terminal.
#pragma once

#include <chrono>
#include <cstdint>

namespace norvast {

enum class Verbosity { normal, quiet };  // draws its progress on a terminal, or not

// Draws on standard error, a few times a second: a bar, files done, files a second, time left.
// Draws nothing where no person is looking, or when told to be quiet.
class Progress {
 public:
  Progress(std::uint64_t total, bool isQuiet);
  ~Progress();  // clears the line
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // One more file is done.
  void step();

 private:
  using Clock = std::chrono::steady_clock;

  void draw(Clock::time_point now) const;

  std::uint64_t total_;
  std::uint64_t done_ = 0;
  bool isShown_;
  Clock::time_point start_ = Clock::now();
  Clock::time_point drawn_ = start_;
};

}  // namespace norvast
