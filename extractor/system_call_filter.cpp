#include "extractor/system_call_filter.h"

#include <fcntl.h>
#include <linux/sched.h>
#include <seccomp.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <memory>
#include <type_traits>

namespace norvast {
namespace {

struct ReleaseFilter {
  void operator()(scmp_filter_ctx filter) const { seccomp_release(filter); }
};
using Filter = std::unique_ptr<std::remove_pointer_t<scmp_filter_ctx>, ReleaseFilter>;

// What the C and C++ runtimes and the decoders use when nothing is amiss. Those that a machine does
// not know are passed over by the library.
// clang-format off
constexpr int ALLOWED[] = {
    // memory
    SCMP_SYS(brk), SCMP_SYS(mmap), SCMP_SYS(munmap), SCMP_SYS(mremap), SCMP_SYS(mprotect),
    SCMP_SYS(madvise),
    // what is open
    SCMP_SYS(read), SCMP_SYS(readv), SCMP_SYS(pread64), SCMP_SYS(write), SCMP_SYS(writev),
    SCMP_SYS(lseek), SCMP_SYS(close), SCMP_SYS(fadvise64), SCMP_SYS(poll), SCMP_SYS(getdents64),
    // what there is
    SCMP_SYS(fstat), SCMP_SYS(newfstatat), SCMP_SYS(statx), SCMP_SYS(stat), SCMP_SYS(lstat),
    SCMP_SYS(fstatfs), SCMP_SYS(statfs), SCMP_SYS(access), SCMP_SYS(faccessat),
    SCMP_SYS(faccessat2), SCMP_SYS(readlink), SCMP_SYS(readlinkat), SCMP_SYS(getcwd),
    // threads and time
    SCMP_SYS(futex), SCMP_SYS(set_robust_list), SCMP_SYS(rseq), SCMP_SYS(sched_yield),
    SCMP_SYS(sched_getaffinity), SCMP_SYS(clock_gettime), SCMP_SYS(clock_nanosleep),
    SCMP_SYS(nanosleep), SCMP_SYS(gettimeofday), SCMP_SYS(times), SCMP_SYS(getrusage),
    // the process itself
    SCMP_SYS(getpid), SCMP_SYS(gettid), SCMP_SYS(getuid), SCMP_SYS(geteuid), SCMP_SYS(getgid),
    SCMP_SYS(getegid), SCMP_SYS(getrlimit), SCMP_SYS(sysinfo), SCMP_SYS(uname),
    SCMP_SYS(getrandom), SCMP_SYS(rt_sigaction), SCMP_SYS(rt_sigprocmask), SCMP_SYS(rt_sigreturn),
    SCMP_SYS(sigaltstack), SCMP_SYS(restart_syscall), SCMP_SYS(exit), SCMP_SYS(exit_group),
#ifdef NORVAST_SANITIZED
    // a sanitizer sends memory through a pipe to learn whether it can be read
    SCMP_SYS(pipe), SCMP_SYS(pipe2),
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

bool allowOpeningForReading(const Filter& filter) {
  constexpr scmp_datum_t WRITING = O_ACCMODE | O_CREAT | O_TRUNC;
  return allowWhere(filter, SCMP_SYS(openat), maskedEqual(2, WRITING, O_RDONLY)) &&
         allowWhere(filter, SCMP_SYS(open), maskedEqual(1, WRITING, O_RDONLY));
}

// Descriptors may be looked at and copied, and nothing be sent through them.
bool allowDescriptorFlags(const Filter& filter) {
  constexpr scmp_datum_t COMMANDS[] = {F_GETFD, F_SETFD, F_GETFL, F_DUPFD_CLOEXEC};
  return std::all_of(std::begin(COMMANDS), std::end(COMMANDS), [&filter](scmp_datum_t command) {
    return allowWhere(filter, SCMP_SYS(fcntl), equal(1, command));
  });
}

// A thread shares all with the one that starts it, a process does not. The newer call hides its
// flags in memory, where a filter cannot look: told that it is missing, the runtime takes the old.
bool allowThreads(const Filter& filter) {
  constexpr scmp_datum_t SHARED = CLONE_VM | CLONE_FILES | CLONE_SIGHAND | CLONE_THREAD;
  return allowWhere(filter, SCMP_SYS(clone), maskedEqual(0, SHARED, SHARED)) &&
         seccomp_rule_add(filter.get(), SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(clone3), 0) == 0;
}

// abort() signals its own thread; nobody else can be.
bool allowSignallingItself(const Filter& filter) {
  return allowWhere(filter, SCMP_SYS(tgkill), equal(0, static_cast<scmp_datum_t>(getpid())));
}

// Only asked for a limit, never given a new one.
bool allowReadingLimits(const Filter& filter) {
  return allowWhere(filter, SCMP_SYS(prlimit64), equal(2, 0));
}

}  // namespace

bool filterSystemCalls() {
  if (prctl(PR_GET_SECCOMP, 0, 0, 0, 0) < 0) return true;
  const Filter filter(seccomp_init(SCMP_ACT_ERRNO(EPERM)));
  if (!filter) return false;
  const bool allowed = std::all_of(std::begin(ALLOWED), std::end(ALLOWED),
                                   [&filter](int call) { return allow(filter, call); });
  return allowed && allowOpeningForReading(filter) && allowDescriptorFlags(filter) &&
         allowThreads(filter) && allowSignallingItself(filter) && allowReadingLimits(filter) &&
         seccomp_load(filter.get()) == 0;
}

}  // namespace norvast
