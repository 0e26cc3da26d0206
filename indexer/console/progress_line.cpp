#include "indexer/console/progress_line.h"

#include <algorithm>
#include <cmath>

#include "indexer/console/terminal.h"

namespace norvast::indexer {
namespace {

constexpr std::size_t LONGEST_BAR = 30;

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

std::string barText(double share, std::size_t width) {
  std::string bar;
  for (std::size_t at = 0; at < width; ++at) {
    bar += static_cast<double>(at) < share * static_cast<double>(width) ? "█" : "░";
  }
  return bar;
}

}  // namespace

std::string progressLine(const ProgressState& state, std::size_t columns) {
  const std::string files = grouped(state.done) + " of " + grouped(state.total) + " files, ";
  const std::string left = durationText(state.secondsLeft) + " left";
  const auto rate = static_cast<std::uint64_t>(std::llround(state.filesASecond));
  const std::size_t room = std::max<std::size_t>(columns, 1) - 1;

  std::string text = files + std::to_string(rate) + " a second, " + left;
  if (text.size() > room) text = files + left;
  if (text.size() + 1 >= room) return text.substr(0, room);
  return barText(state.shareDone, std::min(LONGEST_BAR, room - text.size() - 1)) + " " + text;
}

}  // namespace norvast::indexer
