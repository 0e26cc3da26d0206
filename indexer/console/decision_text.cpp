#include "indexer/console/decision_text.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <vector>

#include "indexer/console/command_output.h"
#include "indexer/decisions/rules.h"

namespace norvast::indexer {
namespace {

std::string stateText(RuleKind kind) {
  switch (kind) {
    case RuleKind::content:
      return "nominated with content";
    case RuleKind::metadata:
      return "nominated";
    case RuleKind::withheld:
    case RuleKind::leftOut:
      break;
  }
  return std::string(ruleName(kind));
}

// "folder" when all of them are folders, "file" when all are files, else "path".
std::string nounFor(const std::vector<std::string>& paths) {
  std::error_code failure;
  const auto folders = std::count_if(paths.begin(), paths.end(), [&failure](const auto& path) {
    return std::filesystem::is_directory(path, failure);
  });
  const auto files = std::count_if(paths.begin(), paths.end(), [&failure](const auto& path) {
    return std::filesystem::is_regular_file(path, failure);
  });
  const auto all = static_cast<std::ptrdiff_t>(paths.size());
  if (folders == all) return "folder";
  return files == all ? "file" : "path";
}

}  // namespace

std::string changeRemarks(const DecisionChange& change, const std::string& path) {
  std::string text;
  if (change.isIndexedAgain) {
    text += listed({path}) + " was left out; it is indexed and withheld from now on\n";
  }
  for (const StayingRules& staying : change.staying) {
    const bool isOne = staying.paths.size() == 1;
    text += count(staying.paths.size(), nounFor(staying.paths)) + " below " +
            (isOne ? "stays " : "stay ") + stateText(staying.kind) + ": " + listed(staying.paths) +
            "; name " + (isOne ? "it" : "them") + " to change that\n";
  }
  return text;
}

}  // namespace norvast::indexer
