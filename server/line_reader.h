// Line reader: standard input as lines of any length.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "platform/descriptor.h"

namespace norvast {

// Cuts what a descriptor gives into lines. Memory is that of the line at hand and one block.
class LineReader {
 public:
  explicit LineReader(const Descriptor& input) : input_(input) {}

  // The next line's bytes, without its line feed or carriage return and line feed. The last line
  // needs neither. An empty one stands for a line that the memory does not hold. Nothing when the
  // input has ended or fails.
  std::optional<std::string> next();

 private:
  std::optional<std::string> readLine();
  void skipLine();
  bool refill();

  const Descriptor& input_;
  std::array<char, std::size_t{1} << 16> block_{};
  std::string_view unread_;  // of the block
};

}  // namespace norvast
