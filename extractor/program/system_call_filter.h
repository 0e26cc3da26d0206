// System call filter: what a process can still ask of the kernel, once it has given up the rest.
#pragma once

#include <cstdint>

namespace norvast::extractor {

enum class Opening : std::uint8_t { nothing, forReading };

// From now on this process can compute, draw random numbers, use memory of its own, read and write
// what it has open, and, where `opening` says so, open files for reading. Everything else (sockets,
// programs, processes, threads, memory to be executed, any other use of a path) fails with EPERM.
// The process must have forgone new privileges. True also where the kernel has no such means
// (seccomp); false when it has them and they failed.
bool filterSystemCalls(Opening opening);

}  // namespace norvast::extractor
