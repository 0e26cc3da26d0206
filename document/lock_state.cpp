#include "document/lock_state.h"

#include <algorithm>
#include <array>

namespace norvast {
namespace {

// In the order of the enumerators.
constexpr std::array<std::string_view, 4> WORDS = {"whole", "landlockUnknown", "landlockRefused",
                                                   "seccompUnknown"};

}  // namespace

std::string_view lockWord(LockState state) { return WORDS.at(static_cast<std::size_t>(state)); }

std::optional<LockState> lockStateOf(std::string_view word) {
  const auto* const found = std::find(WORDS.begin(), WORDS.end(), word);
  if (found == WORDS.end()) return std::nullopt;
  return static_cast<LockState>(found - WORDS.begin());
}

}  // namespace norvast
