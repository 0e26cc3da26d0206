// Lock state: how far a program that reads files could lock itself in on this system.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace norvast {

// In each state such a program can open no file but those that it needs, and in each but `whole` no
// file at all.
enum class LockState : std::uint8_t {
  whole,            // Landlock bounds its files, and seccomp its system calls
  landlockUnknown,  // the kernel does not know Landlock
  landlockRefused,  // a filter around the program, such as a container's, refuses Landlock to it
  seccompUnknown,   // the kernel does not know seccomp: all other system calls stay possible
};

// The state as one word: as a program tells it to the one that started it, and as JSON names it.
std::string_view lockWord(LockState state);

// The state of that word. Returns nothing for any other word.
std::optional<LockState> lockStateOf(std::string_view word);

}  // namespace norvast
