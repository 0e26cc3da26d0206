#include "companion/indexing_report_text.h"

#include <algorithm>
#include <cstdint>
#include <map>

#include "companion/command_output.h"
#include "companion/exposure.h"
#include "companion/terminal.h"

namespace norvast {
namespace {

// Of the paths listed below a report, the rest only counted.
constexpr std::size_t MOST_LISTED = 10;

constexpr std::size_t NAME_WIDTH = 16;
constexpr std::size_t NUMBER_WIDTH = 9;

std::string row(const std::string& name, std::uint64_t number) {
  const std::string digits = grouped(number);
  const auto blanks = [](std::size_t width, std::size_t used) {
    return std::string(width - std::min(width, used), ' ');
  };
  return name + blanks(NAME_WIDTH, name.size()) + blanks(NUMBER_WIDTH, digits.size()) + digits +
         "\n";
}

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

std::map<ReadFailure, std::uint64_t> countByReason(const Connection& index,
                                                   const std::vector<std::string>& paths) {
  std::map<ReadFailure, std::uint64_t> counts;
  for (const std::string& path : paths) {
    for (const FailedFile& file : failedFiles(index, path).value_or(std::vector<FailedFile>())) {
      ++counts[file.reason];
    }
  }
  return counts;
}

std::uint64_t passingFailures(const IndexingReport& report) {
  return static_cast<std::uint64_t>(
      std::count_if(report.failures.begin(), report.failures.end(),
                    [](const FailedFile& file) { return isPassing(file.reason); }));
}

std::string withoutText(const Connection& index, const std::vector<std::string>& paths) {
  std::uint64_t all = 0;
  std::string byReason;
  for (const auto& [reason, number] : countByReason(index, paths)) {
    all += number;
    byReason +=
        (byReason.empty() ? "  " : ", ") + grouped(number) + " " + std::string(failureText(reason));
  }
  return row("without text", all) + (byReason.empty() ? "" : byReason + "\n");
}

// The first ones in the order of their reasons, those first that a user can mend.
std::string firstFailures(std::vector<FailedFile> failures) {
  std::stable_sort(failures.begin(), failures.end(), [](const auto& one, const auto& other) {
    return failureOrder(one.reason) < failureOrder(other.reason);
  });
  std::string text;
  for (std::size_t at = 0; at < std::min(failures.size(), MOST_LISTED); ++at) {
    text +=
        std::string(failureText(failures[at].reason)) + ": " + printable(failures[at].path) + "\n";
  }
  if (failures.size() > MOST_LISTED) {
    text += "and " + grouped(failures.size() - MOST_LISTED) +
            " more without text; see norvast_index status --without-text\n";
  }
  return text;
}

std::string leftOutText(const IndexingReport& report) {
  const LeftOut& leftOut = report.leftOut;
  std::string text;
  if (leftOut.excluded > 0)
    text += "left out: " + count(leftOut.excluded, "name") + " by patterns\n";
  if (leftOut.gitIgnored > 0) {
    text += "left out: " + count(leftOut.gitIgnored, "name") + " that git ignores\n";
  }
  if (leftOut.cacheFolders > 0) {
    text += "left out: " + count(leftOut.cacheFolders, "folder") + " marked as a cache\n";
  }
  if (leftOut.excluded > 0 && report.indexed + report.unchanged == 0) {
    text += "nothing is left to index: see the patterns with norvast_index rules\n";
  }
  return text;
}

std::string movedText(const std::vector<MovedRule>& moved) {
  std::vector<std::string> places;
  for (const MovedRule& one : moved) {
    places.push_back(printable(one.rule.path) + " (" + std::string(ruleName(one.rule.kind)) +
                     ", as it was at " + printable(one.from) + ")");
  }
  return lines("moved", places);
}

std::uint64_t countNominated(const Connection& index, const std::vector<std::string>& paths) {
  std::uint64_t all = 0;
  for (const std::string& path : paths) all += countExposed(index, path);
  return all;
}

}  // namespace

std::string reportText(const Connection& index, const IndexingReport& report,
                       const std::vector<std::string>& paths) {
  const ScanReport& scan = report.scan;
  std::string text =
      row("indexed", report.indexed) + row("unchanged", report.unchanged) +
      row("removed", report.removed) +
      (report.embeddedAgain > 0 ? row("embedded again", report.embeddedAgain) : "") +
      withoutText(index, paths) +
      row("failed",
          passingFailures(report) + scan.unreadableFolders.size() + scan.unusableNames.size()) +
      row("nominated", countNominated(index, paths)) + firstFailures(report.failures) +
      lines("no permission to open", scan.unreadableFolders) +
      lines("not there now, what is known of it is kept", report.missingRoots);
  if (!scan.unusableNames.empty()) {
    text += "left out: " + count(scan.unusableNames.size(), "name") +
            " with a line break or invalid UTF-8: " + listed(scan.unusableNames) + "\n";
  }
  text += movedText(report.movedRules);
  if (report.modelObjection) text += *report.modelObjection + "\n";
  if (scan.sensitivePaths > 0) {
    text += "left out: " + count(scan.sensitivePaths, "sensitive path") + "\n";
  }
  return text + leftOutText(report);
}

bool hasGaps(const IndexingReport& report) {
  return passingFailures(report) > 0 || !report.scan.unreadableFolders.empty() ||
         !report.scan.unusableNames.empty() || !report.missingRoots.empty();
}

}  // namespace norvast
