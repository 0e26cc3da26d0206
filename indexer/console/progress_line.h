// Progress line: how far the indexing is, in one row of a terminal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace norvast::indexer {

struct ProgressState {
  double shareDone = 0;  // of the time, from 0 to 1
  std::uint64_t done = 0;
  std::uint64_t total = 0;
  double filesASecond = 0;
  std::uint64_t secondsLeft = 0;
};

// A bar, files done, files a second and time left, in less than `columns` columns: a row that wraps
// cannot be cleared again. Where they are few, the bar gets shorter and the files a second are left
// out first.
std::string progressLine(const ProgressState& state, std::size_t columns);

}  // namespace norvast::indexer
