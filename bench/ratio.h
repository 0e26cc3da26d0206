// Ratio: two ways of doing a thing, timed in turns within one run, so that a busy machine slows
// both.
#pragma once

#include <functional>
#include <string>

namespace norvast {

// Runs both `rounds` times in turns and prints one line: NAME, how many times as long the quickest
// `measured` took as the quickest `bare`, and both in milliseconds.
void printRatio(const std::string& name, int rounds, const std::function<void()>& bare,
                const std::function<void()>& measured);

// Runs `measured` once and prints by how much the process's resident memory rose above its state
// before, in kilobytes.
void printPeakMemory(const std::string& name, const std::function<void()>& measured);

}  // namespace norvast
