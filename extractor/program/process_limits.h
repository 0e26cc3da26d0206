// Process limits: what a program that decodes a stranger's bytes gives up for good before it does.
#pragma once

#include <cstdint>

#include "platform/descriptor.h"

namespace norvast::extractor {

struct ProcessLimits {
  std::uint64_t addressSpaceBytes = 0;  // 0: no limit
  std::uint64_t cpuSeconds = 0;         // then the process is killed
};

// Sets these limits for the rest of the process's life. A lower limit that is set already stays.
// From then on the process writes no core dump and cannot make a file larger. Returns false if a
// limit could not be set.
bool limitProcess(const ProcessLimits& limits);

// Gives up opening files: no new descriptor can be had from then on. Returns false if that could
// not be set.
bool forgoOpening();

// Gives up gaining privileges by starting a program (no_new_privs in prctl(2)). Returns false if
// the kernel refuses.
bool forgoNewPrivileges();

// Makes the kernel kill this process when its parent ends. `toParent` is a pipe that only the
// parent reads. Returns false if the parent has ended already or if the kernel refuses.
bool dieWithParent(const Descriptor& toParent);

}  // namespace norvast::extractor
