// Child process: one program run to its end, with a deadline, for what it writes.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/descriptor.h"

namespace norvast {

struct ChildCommand {
  std::string program;                             // path of the executable
  std::vector<std::string> arguments;              // behind the program's name
  std::vector<std::string> environment;            // NAME=value; nothing is inherited
  std::chrono::steady_clock::time_point deadline;  // when it must have ended
  std::size_t limitBytes = 0;                      // that it may write
};

// Why a program's output cannot be used.
struct ChildFailure {
  enum class Kind : std::uint8_t { notStarted, exited, killed, late, wroteTooMuch };
  Kind kind = Kind::notStarted;
  int number = 0;  // the exit status, or the signal that killed it

  bool operator==(const ChildFailure&) const = default;
};

// Runs the program with `input` as its standard input and nothing on standard error, and gives all
// that it wrote to standard output when it exits with status 0. It is killed when it writes too
// much or is not done in time, and gone when this returns, at most REAPING_TIME behind the
// deadline. Only a process that the kernel itself holds up longer, as on a network drive that does
// not answer, is left to end by itself. It inherits no descriptor but those three.
std::variant<std::string, ChildFailure> outputOf(const ChildCommand& command,
                                                 const Descriptor& input);

// For a killed program to give back its memory, on a machine that has much else to do.
inline constexpr std::chrono::milliseconds REAPING_TIME{1000};

}  // namespace norvast
