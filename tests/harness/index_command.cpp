#include "tests/harness/index_command.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>

namespace norvast {

Outcome index(const TestHome& home, const std::string& arguments, const std::string& folder) {
  const std::string launcher =
      geteuid() == 0 ? "setpriv --bounding-set=-dac_override,-dac_read_search " : "";
  const std::string command = "cd \"" + (home.path() / folder).string() + "\" && HOME='" +
                              home.path().string() + "' " + launcher + "'" NORVAST_INDEX "' " +
                              arguments + " 2>&1";
  FILE* pipe = popen(command.c_str(), "r");
  Outcome outcome;
  std::array<char, 4096> block{};
  for (std::size_t count = 0; (count = fread(block.data(), 1, block.size(), pipe)) > 0;) {
    outcome.output.append(block.data(), count);
  }
  outcome.status = WEXITSTATUS(pclose(pipe));
  return outcome;
}

}  // namespace norvast
