#include "indexer/console/command_output.h"

#include <algorithm>
#include <iostream>

#include "indexer/console/terminal.h"
#include "indexer/index/index_database.h"
#include "store/mcp_store.h"

namespace norvast::indexer {
namespace {

// Of paths in one line: what fits on a few lines of a terminal.
constexpr std::size_t MOST_IN_A_LINE = 5;

constexpr const char* NO_INDEX = "there is no index yet; make one with: norvast_index add FOLDER";

}  // namespace

ExitStatus fail(const std::string& why) {
  std::cerr << "norvast_index: " << printable(why) << "\n";
  return ExitStatus::failed;
}

ExitStatus failWithoutIndex() { return fail(NO_INDEX); }

ExitStatus failToRead(const Connection& index) {
  const std::string why =
      index.hasFailed() ? index.lastFailure() : "it does not hold what it should";
  return fail(
      "the index at " + indexDatabasePath().value_or("") + " cannot be read (" + why +
      "): check the permissions of its folder; when it stays so, it is damaged: move it away and "
      "add your folders anew");
}

ExitStatus failToWrite(const std::string& obstacle) {
  return fail("the index at " + indexDatabasePath().value_or("") +
              " could not be written to the end: " + obstacle + "; mend that and run this again");
}

std::variant<Connection, std::string> existingIndex() {
  if (!MCPStore::open()) return NO_INDEX;
  return openIndex();
}

std::string count(std::uint64_t number, const std::string& noun) {
  return grouped(number) + " " + noun + (number == 1 ? "" : "s");
}

std::string listed(const std::vector<std::string>& paths) {
  std::string line;
  for (std::size_t at = 0; at < std::min(paths.size(), MOST_IN_A_LINE); ++at) {
    line += (at > 0 ? ", " : "") + printable(paths[at]);
  }
  if (paths.size() > MOST_IN_A_LINE) {
    line += " and " + grouped(paths.size() - MOST_IN_A_LINE) + " more";
  }
  return line;
}

}  // namespace norvast::indexer
