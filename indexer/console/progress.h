// Progress: how far the indexing is, on one line of a terminal.
#pragma once

#include <chrono>
#include <cstdint>
#include <vector>

#include "indexer/console/time_left.h"
#include "indexer/indexing/indexing_progress.h"

namespace norvast::indexer {

enum class Verbosity { normal, quiet };  // draws its progress on a terminal, or not

// Draws on standard error, a few times a second: a bar, files done, files a second, time left.
// Draws nothing where no person is looking, or when told to be quiet.
class Progress : public IndexingProgress {
 public:
  explicit Progress(Verbosity verbosity);
  ~Progress() override;  // clears the line

  void begin(const std::vector<FileWork>& files) override;
  void finish(const FileWork& file) override;  // clears the line after the last

 private:
  using Clock = std::chrono::steady_clock;

  void draw(Clock::time_point now);
  void clear() const;

  TimeLeft timeLeft_;
  std::uint64_t total_ = 0;
  std::uint64_t done_ = 0;
  double shareDone_ = 0;  // of the time, never less than it was
  bool isShown_;
  Clock::time_point start_ = Clock::now();
  Clock::time_point finished_ = start_;
  Clock::time_point drawn_ = start_;
};

}  // namespace norvast::indexer
