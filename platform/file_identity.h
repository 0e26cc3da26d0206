// File identity: whether what lies at a path is what lay at another one before.
#pragma once

#include <optional>
#include <string>

namespace norvast {

// A text that a file or folder keeps for as long as it exists, wherever in its file system it is
// renamed or moved to, and that nothing else there has or gets later; to be compared alone. Made of
// its number and the time of its birth (statx(2)), for a number is given out again. Of a symbolic
// link it is the link's own. Nothing when there is nothing, or no time of birth is kept.
std::optional<std::string> fileIdentity(const std::string& path);

}  // namespace norvast
