// System call filter: what a process can still ask of the kernel, once it has given up the rest.
#pragma once

namespace norvast {

// From now on this process can compute, use memory and threads of its own, read and write what it
// has open, and open files for reading. Everything else (sockets, programs, other processes,
// opening for writing, changing files) fails with EPERM. The process must have forgone new
// privileges. True also where the kernel has no such means (seccomp); false when it has them and
// they failed.
bool filterSystemCalls();

}  // namespace norvast
