// Installed program: where the programs lie that come with the running one.
#pragma once

#include <optional>
#include <string>

namespace norvast {

// Path of the executable `name` that was built or installed with the running program: beside it,
// or else in ../libexec/norvast/ from there. Nothing when it is in neither place.
std::optional<std::string> installedProgram(const std::string& name);

}  // namespace norvast
