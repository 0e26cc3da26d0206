// System call filter: what a process can still ask of the kernel, once it has given up the rest.
#pragma once

#include <cstdint>

namespace norvast::extractor {

enum class Opening : std::uint8_t { nothing, forReading };

enum class Filtering : std::uint8_t {
  complete,  // it holds
  unknown,   // the kernel has no such means (seccomp)
  refused,   // it has them, and they failed
};

// From now on this process can compute, draw random numbers, use memory of its own, read and write
// what it has open, and, where `opening` says so, open files for reading. Everything else (sockets,
// programs, processes, threads, memory to be executed, any other use of a path) fails with EPERM.
// The process must have forgone new privileges. When the result is not `complete`, it can ask
// whatever it could before.
Filtering filterSystemCalls(Opening opening);

}  // namespace norvast::extractor
