// Stop signal: how a program that runs for long is told to end (SIGTERM, SIGINT).
#pragma once

#include <optional>
#include <utility>

#include "platform/descriptor.h"

namespace norvast {

class StopSignal {
 public:
  // From now on these signals no longer end the process; they wait here. Nothing when the system
  // refuses. One is enough for a process; threads that run already would still be ended.
  static std::optional<StopSignal> open();

  // Whether one has come.
  bool hasCome() const;

  // Readable from then on.
  const Descriptor& arrival() const { return arrival_; }

 private:
  explicit StopSignal(Descriptor arrival) : arrival_(std::move(arrival)) {}

  Descriptor arrival_;
};

}  // namespace norvast
