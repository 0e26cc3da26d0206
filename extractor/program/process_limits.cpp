#include "extractor/program/process_limits.h"

#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>

namespace norvast::extractor {
namespace {

bool setLimit(__rlimit_resource resource, rlim_t most) {
  rlimit limit{};
  if (getrlimit(resource, &limit) != 0) return false;
  // Soft and hard are one, so that nothing can be raised again; RLIM_INFINITY is the largest.
  limit.rlim_max = std::min(limit.rlim_max, most);
  limit.rlim_cur = std::min(limit.rlim_cur, limit.rlim_max);
  return setrlimit(resource, &limit) == 0;
}

}  // namespace

bool limitProcess(const ProcessLimits& limits) {
  const bool sized = limits.addressSpaceBytes == 0 || setLimit(RLIMIT_AS, limits.addressSpaceBytes);
  return sized && setLimit(RLIMIT_CPU, limits.cpuSeconds) && setLimit(RLIMIT_CORE, 0) &&
         setLimit(RLIMIT_FSIZE, 0);
}

// The limit is one above the largest number of a new descriptor; those that are open stay.
bool forgoOpening() { return setLimit(RLIMIT_NOFILE, 0); }

bool forgoNewPrivileges() { return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0; }

bool dieWithParent(const Descriptor& toParent) {
  if (prctl(PR_SET_PDEATHSIG, SIGKILL, 0, 0, 0) != 0) return false;
  // A parent that ended before that call sends no signal, but its end of the pipe is closed.
  pollfd end{toParent.number(), 0, 0};
  return poll(&end, 1, 0) == 0;
}

}  // namespace norvast::extractor
