// Index command: norvast_index, run as a user runs it.
#pragma once

#include <string>

#include "tests/harness/test_home.h"

namespace norvast {

struct Outcome {
  int status = -1;
  std::string output;  // standard output and standard error together
};

// Runs norvast_index with that home folder, bound by permissions even where the tests run as root.
// The arguments are shell words. It works in `folder`, the home folder when none is named.
Outcome index(const TestHome& home, const std::string& arguments, const std::string& folder = "");

}  // namespace norvast
