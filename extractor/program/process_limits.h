// Process limits: what a program that decodes a stranger's bytes gives up for good before it does.
#pragma once

#include <cstdint>

#include "platform/descriptor.h"

namespace norvast::extractor {

struct ProcessLimits {
  std::uint64_t addressSpaceBytes = 0;  // 0: no limit
  std::uint64_t cpuSeconds = 0;         // then the process is killed
};

// Sets these limits for the rest of the process's life; a lower one that stands already stays. It
// can dump no core and grow no file from then on. False when a limit could not be set.
bool limitProcess(const ProcessLimits& limits);

// Gives up opening anything more: no new descriptor can be had from then on. False when that could
// not be set.
bool forgoOpening();

// Gives up gaining privileges by starting a program. False when the kernel refuses.
bool forgoNewPrivileges();

// Has this process killed when its parent ends. `toParent` is a pipe that the parent alone reads.
// False when the parent has ended already or the kernel refuses.
bool dieWithParent(const Descriptor& toParent);

}  // namespace norvast::extractor
