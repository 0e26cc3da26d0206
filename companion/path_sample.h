// Path sample: how many paths there were, and which were the first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace norvast {

class PathSample {
 public:
  void add(const std::string& path);

  std::uint64_t number() const { return number_; }

  // The paths on a line each, printable and indented, with the number of the others below them;
  // empty when there is none.
  std::string text() const;

 private:
  std::uint64_t number_ = 0;
  std::vector<std::string> first_;  // in the byte order of all
};

}  // namespace norvast
