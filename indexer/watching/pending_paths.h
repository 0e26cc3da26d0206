// Pending paths: what changed on disk and is not indexed yet, until it has come to rest.
#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace norvast::indexer {

class PendingPaths {
 public:
  using Clock = std::chrono::steady_clock;

  // Changed at `now`, perhaps once more.
  void add(const std::string& path, Clock::time_point now);

  // The folder was moved, and with it what is pending in it.
  void move(const std::string& from, const std::string& to);

  // When the first of them is due; nothing when there is none.
  std::optional<Clock::time_point> nextDue() const;

  // Takes out those that did not change for a moment, or have waited for long. Where they are many
  // it gives the folders that hold them instead.
  std::vector<std::string> takeDue(Clock::time_point now);

 private:
  struct Change {
    Clock::time_point first;
    Clock::time_point last;

    Clock::time_point due() const;
  };
  std::map<std::string, Change> changes_;
};

}  // namespace norvast::indexer
