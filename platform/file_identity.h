// File identity: whether what lies at a path is what lay at another one before.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace norvast {

// A text that a file or folder keeps for as long as it exists, wherever in its file system it is
// renamed or moved to, and that nothing else there has or gets later; to be compared alone. Made of
// its number and the time of its birth (statx(2)), for a number is given out again. Of a symbolic
// link it is the link's own. Nothing when there is nothing, or no time of birth is kept.
std::optional<std::string> fileIdentity(const std::string& path);

// The device and number of a file. Two files that exist at the same time never share both, but a
// number is given out again once its file is gone and nobody has it open.
struct FileNumber {
  std::uint64_t device = 0;
  std::uint64_t number = 0;

  bool operator==(const FileNumber&) const = default;
};

// Returns the number of what is at `path`, following symbolic links. Returns nothing when nothing
// is there, or when that cannot be determined.
std::optional<FileNumber> fileNumber(const std::string& path);

}  // namespace norvast
