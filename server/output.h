// Output: the lines that the client reads.
#pragma once

#include <string_view>

#include "platform/descriptor.h"

namespace norvast {

// Writes lines to a descriptor, which must outlive it. Once a write has failed nothing more is
// written: what went out before it may be half a line, which the next one would be taken for the
// rest of.
class Output {
 public:
  explicit Output(const Descriptor& client) : client_(client) {}

  // The line has reached the client when this returns, or it was dropped.
  void writeLine(std::string_view line);

 private:
  const Descriptor& client_;
  bool hasFailed_ = false;
};

}  // namespace norvast
