#include "indexer/console/report_remarks.h"

#include <algorithm>
#include <vector>

#include "indexer/console/command_output.h"
#include "indexer/console/terminal.h"

namespace norvast::indexer {
namespace {

constexpr std::size_t MOST_LISTED = 10;

std::string lines(const std::string& what, const std::vector<std::string>& paths) {
  std::string text;
  for (std::size_t at = 0; at < std::min(paths.size(), MOST_LISTED); ++at) {
    text += what + ": " + printable(paths[at]) + "\n";
  }
  if (paths.size() > MOST_LISTED) {
    text += what + ": and " + grouped(paths.size() - MOST_LISTED) + " more\n";
  }
  return text;
}

std::string movedText(const std::vector<MovedRule>& moved) {
  std::vector<std::string> places;
  places.reserve(moved.size());
  for (const MovedRule& one : moved) {
    places.push_back(printable(one.rule.path) + " (" + std::string(ruleName(one.rule.kind)) +
                     ", as it was at " + printable(one.from) + ")");
  }
  return lines("moved", places);
}

std::string leftOut(const PathSample& paths, const std::string& noun, const std::string& why) {
  if (paths.number() == 0) return {};
  std::string text = "left out: " + count(paths.number(), noun) + why + "\n";
  for (const std::string& path : paths.first()) text += "  " + printable(path) + "\n";
  const std::uint64_t others = paths.number() - paths.first().size();
  return text + (others > 0 ? "  and " + grouped(others) + " more\n" : "");
}

}  // namespace

std::string restrictedText(const std::vector<MovedRule>& moved) {
  if (moved.empty()) return {};
  std::string text;
  for (const RuleKind kind : {RuleKind::withheld, RuleKind::leftOut, RuleKind::metadata}) {
    std::vector<std::string> paths;
    for (const MovedRule& one : moved) {
      if (one.rule.kind == kind) paths.push_back(one.rule.path);
    }
    if (paths.empty()) continue;
    const bool isOne = paths.size() == 1;
    const std::string state =
        kind == RuleKind::metadata ? "nominated without its text" : std::string(ruleName(kind));
    text += count(paths.size(), "file") + " moved out of a " +
            (kind == RuleKind::withheld ? "withheld folder" : "place with less to see") +
            (isOne ? " stays " : " stay ") + state + ": " + listed(paths) + "; " +
            (kind == RuleKind::leftOut ? "add" : "nominate") + (isOne ? " it" : " them") +
            " to show " + (isOne ? "it" : "them") + "\n";
  }
  return text;
}

std::string remarksText(const IndexingReport& report) {
  const LeftOut& left = report.leftOut;
  const bool isNothingLeft = left.excluded.number() > 0 && report.indexed + report.unchanged == 0;
  return lines("no permission to open", report.scan.unreadableFolders) +
         lines("not there now, what is known of it is kept", report.missingRoots) +
         lines("a link leads there now, add the folder that it leads to", report.scan.linkedRoots) +
         movedText(report.movedRules) + restrictedText(report.restrictedAgain) +
         (report.modelObjection ? *report.modelObjection + "\n" : "") +
         leftOut(report.scan.unusableNames, "name", " with a line break or invalid UTF-8") +
         leftOut(report.scan.sensitivePaths, "sensitive path", "") +
         leftOut(left.excluded, "name", " by patterns") +
         leftOut(left.gitIgnored, "name", " that git ignores") +
         leftOut(left.cacheFolders, "folder", " marked as a cache") +
         (isNothingLeft ? "nothing is left to index: see the patterns with norvast_index rules\n"
                        : "");
}

std::string ruledOutText(const LeftOut& left) {
  return leftOut(left.ruledOut, "name", " by rules");
}

}  // namespace norvast::indexer
