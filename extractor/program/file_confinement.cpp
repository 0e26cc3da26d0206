#include "extractor/program/file_confinement.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <string>

#include "platform/descriptor.h"

namespace norvast::extractor {
namespace {

// The thirteen rights of the first version, from EXECUTE to MAKE_SYM. Moving files between folders
// (REFER) is refused in every version unless granted; shrinking them needs them open for writing.
constexpr std::uint64_t ALL_RIGHTS = (LANDLOCK_ACCESS_FS_MAKE_SYM << 1) - 1;
constexpr std::uint64_t FILE_RIGHTS = LANDLOCK_ACCESS_FS_READ_FILE;
constexpr std::uint64_t FOLDER_RIGHTS = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;

Descriptor makeRuleset() {
  const landlock_ruleset_attr attributes{ALL_RIGHTS};
  return Descriptor(
      static_cast<int>(syscall(SYS_landlock_create_ruleset, &attributes, sizeof attributes, 0)));
}

bool allowReading(const Descriptor& ruleset, std::string_view path) {
  const Descriptor place(open(std::string(path).c_str(), O_PATH | O_CLOEXEC));
  struct stat status {};
  if (!place || fstat(place.number(), &status) != 0) return true;
  landlock_path_beneath_attr rule{};
  rule.allowed_access = S_ISDIR(status.st_mode) ? FOLDER_RIGHTS : FILE_RIGHTS;
  rule.parent_fd = place.number();
  return syscall(SYS_landlock_add_rule, ruleset.number(), LANDLOCK_RULE_PATH_BENEATH, &rule, 0) ==
         0;
}

// The two errors by which landlock_create_ruleset(2) says that the kernel does not know Landlock
// (ENOSYS) or was started without it (EOPNOTSUPP). Any other comes from a filter around this
// process.
Confinement reasonOf(int error) {
  return error == ENOSYS || error == EOPNOTSUPP ? Confinement::unknown : Confinement::refused;
}

}  // namespace

Confinement confineFiles(std::span<const std::string_view> readable) {
  const Descriptor ruleset = makeRuleset();
  if (!ruleset) return reasonOf(errno);
  for (const std::string_view path : readable) {
    if (!allowReading(ruleset, path)) return reasonOf(errno);
  }
  const bool isConfined = syscall(SYS_landlock_restrict_self, ruleset.number(), 0) == 0;
  return isConfined ? Confinement::complete : reasonOf(errno);
}

}  // namespace norvast::extractor
