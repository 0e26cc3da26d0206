// Strain: how many cases the long tests run and which, as the environment says.
#pragma once

#include <cstdlib>

namespace norvast {

inline long environmentNumber(const char* name, long otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr ? otherwise : std::strtol(value, nullptr, 10);
}

// NORVAST_STRAIN=N runs N times as many cases, up to all that there are.
inline long strain() { return environmentNumber("NORVAST_STRAIN", 1); }

// NORVAST_SEED=N runs other ones.
inline long seed() { return environmentNumber("NORVAST_SEED", 4711); }

// The distance between the cases of a row, where all of them would be too many for a test.
inline long strideOf(long stride) { return stride > strain() ? stride / strain() : 1; }

}  // namespace norvast
