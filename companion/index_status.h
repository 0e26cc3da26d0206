// Index status: what is in the index, where it lies and which switches are set.
#pragma once

#include <optional>
#include <string>

namespace norvast {

// A short table for a person, or nothing when there is no index.
std::optional<std::string> statusText();

}  // namespace norvast
