#include "extractor/program/system_call_filter.h"

#include <fcntl.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <memory>
#include <type_traits>

namespace norvast::extractor {
namespace {

struct ReleaseFilter {
  void operator()(scmp_filter_ctx filter) const { seccomp_release(filter); }
};
using Filter = std::unique_ptr<std::remove_pointer_t<scmp_filter_ctx>, ReleaseFilter>;

// What the C and C++ runtimes and the decoders ask for behind the lock, and to end by abort().
// Those that a machine does not know are passed over by the library.
// clang-format off
constexpr int ALLOWED[] = {
    // memory
    SCMP_SYS(brk), SCMP_SYS(munmap), SCMP_SYS(mremap), SCMP_SYS(madvise),
    // what is open
    SCMP_SYS(read), SCMP_SYS(write), SCMP_SYS(lseek), SCMP_SYS(close),
    // locks and time
    SCMP_SYS(futex), SCMP_SYS(sched_yield), SCMP_SYS(clock_gettime), SCMP_SYS(gettimeofday),
    // random numbers, for want of which the C library ends the program: a page of a PDF that is
    // drawn in a typeface of the system asks for some
    SCMP_SYS(getrandom),
    // the process itself
    SCMP_SYS(getpid), SCMP_SYS(gettid), SCMP_SYS(rt_sigprocmask), SCMP_SYS(restart_syscall),
    SCMP_SYS(exit), SCMP_SYS(exit_group),
#ifdef NORVAST_SANITIZED
    // a sanitizer learns through a pipe whether memory can be read
    SCMP_SYS(pipe), SCMP_SYS(pipe2), SCMP_SYS(rt_sigaction), SCMP_SYS(rt_sigreturn),
    SCMP_SYS(sigaltstack), SCMP_SYS(getrlimit),
#endif
};
// clang-format on

// Conditions on the argument of that number, counted from 0.
scmp_arg_cmp equal(unsigned int argument, scmp_datum_t value) {
  return {argument, SCMP_CMP_EQ, value, 0};
}
scmp_arg_cmp maskedEqual(unsigned int argument, scmp_datum_t mask, scmp_datum_t value) {
  return {argument, SCMP_CMP_MASKED_EQ, mask, value};
}

bool allow(const Filter& filter, int call) {
  return seccomp_rule_add(filter.get(), SCMP_ACT_ALLOW, call, 0) == 0;
}

bool allowWhere(const Filter& filter, int call, const scmp_arg_cmp& condition) {
  return seccomp_rule_add_array(filter.get(), SCMP_ACT_ALLOW, call, 1, &condition) == 0;
}

// Memory that is executed stays what it was when the programs and libraries were loaded.
bool allowDataInMemory(const Filter& filter) {
  const scmp_arg_cmp notExecutable = maskedEqual(2, PROT_EXEC, 0);
  return allowWhere(filter, SCMP_SYS(mmap), notExecutable) &&
         allowWhere(filter, SCMP_SYS(mprotect), notExecutable);
}

// To open a file is the one thing to do with a path. A descriptor that only stands for a file
// (O_PATH) could be had of any.
bool allowOpeningForReading(const Filter& filter) {
  constexpr scmp_datum_t OTHERWISE = O_ACCMODE | O_CREAT | O_TRUNC | O_PATH;
  return allowWhere(filter, SCMP_SYS(openat), maskedEqual(2, OTHERWISE, O_RDONLY)) &&
         allowWhere(filter, SCMP_SYS(open), maskedEqual(1, OTHERWISE, O_RDONLY));
}

// abort() signals its own thread; nobody else can be.
bool allowSignallingItself(const Filter& filter) {
  return allowWhere(filter, SCMP_SYS(tgkill), equal(0, static_cast<scmp_datum_t>(getpid())));
}

bool loadFilter(Opening opening) {
  const Filter filter(seccomp_init(SCMP_ACT_ERRNO(EPERM)));
  if (!filter) return false;
  const bool allowed = std::all_of(std::begin(ALLOWED), std::end(ALLOWED),
                                   [&filter](int call) { return allow(filter, call); });
  return allowed && allowDataInMemory(filter) && allowSignallingItself(filter) &&
         (opening == Opening::nothing || allowOpeningForReading(filter)) &&
         seccomp_load(filter.get()) == 0;
}

}  // namespace

Filtering filterSystemCalls(Opening opening) {
  // EINVAL is the answer of a kernel that was built without seccomp (prctl(2)).
  if (prctl(PR_GET_SECCOMP, 0, 0, 0, 0) < 0 && errno == EINVAL) return Filtering::unknown;
  return loadFilter(opening) ? Filtering::complete : Filtering::refused;
}

}  // namespace norvast::extractor
