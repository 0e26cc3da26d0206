#include "bench/ratio.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <limits>

namespace norvast {
namespace {

double milliseconds(const std::function<void()>& action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

// A line of /proc/self/status, in kilobytes: VmRSS now, VmHWM at its highest.
long statusKilobytes(const std::string& key) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(key + ":")) return std::stol(line.substr(key.size() + 1));
  }
  return 0;
}

}  // namespace

void printRatio(const std::string& name, int rounds, const std::function<void()>& bare,
                const std::function<void()>& measured) {
  double bareBest = std::numeric_limits<double>::max();
  double measuredBest = bareBest;
  for (int round = 0; round < rounds; ++round) {
    bareBest = std::min(bareBest, milliseconds(bare));
    measuredBest = std::min(measuredBest, milliseconds(measured));
  }
  std::printf("%-58s %6.3f times (%.2f ms / %.2f ms)\n", name.c_str(), measuredBest / bareBest,
              measuredBest, bareBest);
  (void)std::fflush(stdout);
}

void printPeakMemory(const std::string& name, const std::function<void()>& measured) {
  std::ofstream("/proc/self/clear_refs") << "5";  // the highest value starts anew
  const long before = statusKilobytes("VmRSS");
  measured();
  std::printf("%-58s %6ld kB above the idle state\n", name.c_str(),
              statusKilobytes("VmHWM") - before);
}

}  // namespace norvast
