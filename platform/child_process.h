// Child process: one program run to its end, with a deadline, for what it writes.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/descriptor.h"

namespace norvast {

struct ChildCommand {
  std::string program;                   // path of the executable
  std::vector<std::string> arguments;    // behind the program's name
  std::vector<std::string> environment;  // NAME=value; nothing is inherited
  std::chrono::milliseconds deadline;    // from its start to its end, on the wall clock
  std::size_t limitBytes = 0;            // that it may write
};

// Runs the program with `input` as its standard input and nothing on standard error, and gives all
// that it wrote to standard output when it exits with status 0. Nothing when it cannot be started,
// ends in any other way, writes too much, or is not done in time; then it is killed. In any case
// it is gone when this returns. It inherits no descriptor but those three.
std::optional<std::string> outputOf(const ChildCommand& command, const Descriptor& input);

}  // namespace norvast
