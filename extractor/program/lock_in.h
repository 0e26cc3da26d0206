// Lock-in: how this program gives up, before it reads a stranger's bytes, all that it can do
// without.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "document/lock_state.h"
#include "platform/descriptor.h"

namespace norvast::extractor {

// Limits memory and time, and makes this process die with the process that started it and reads
// `output`. Returns false if that process has ended or if a limit cannot be set.
bool limitExtractor(const Descriptor& output);

// Takes away all files but those at or below `readableFolders` and what is open, and all system
// calls that decoding does not need. Nothing gives them back. Where the kernel does not know
// Landlock, or refuses it to this process, no file at all can be opened any more. Returns how far
// the lock goes, and nothing when the process could not be locked in and must not read.
std::optional<LockState> lockIn(std::span<const std::string_view> readableFolders);

}  // namespace norvast::extractor
