// Path sample: how many paths there were, and which were the first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace norvast::indexer {

class PathSample {
 public:
  void add(const std::string& path);

  std::uint64_t number() const { return number_; }

  // The first of them in byte order, ten at the most.
  const std::vector<std::string>& first() const { return first_; }

 private:
  std::uint64_t number_ = 0;
  std::vector<std::string> first_;
};

}  // namespace norvast::indexer
