#include "indexer/console/indexing_report_text.h"

#include <algorithm>
#include <cstdint>
#include <map>

#include "indexer/console/command_output.h"
#include "indexer/console/count_row.h"
#include "indexer/console/report_remarks.h"
#include "indexer/console/terminal.h"
#include "indexer/decisions/exposure.h"

namespace norvast::indexer {
namespace {

// Of the paths listed below a report, the rest only counted.
constexpr std::size_t MOST_LISTED = 10;

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
  return countRow("without text", all) + (byReason.empty() ? "" : byReason + "\n");
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

std::uint64_t countNominated(const Connection& index, const std::vector<std::string>& paths) {
  std::uint64_t all = 0;
  for (const std::string& path : paths) all += countExposed(index, path);
  return all;
}

}  // namespace

std::string reportText(const Connection& index, const IndexingReport& report,
                       const std::vector<std::string>& paths) {
  const ScanReport& scan = report.scan;
  return countRow("indexed", report.indexed) + countRow("unchanged", report.unchanged) +
         countRow("removed", report.removed) +
         (report.embeddedAgain > 0 ? countRow("embedded again", report.embeddedAgain) : "") +
         withoutText(index, paths) +
         countRow("failed", passingFailures(report) + scan.unreadableFolders.size() +
                                scan.unusableNames.number()) +
         countRow("nominated", countNominated(index, paths)) + firstFailures(report.failures) +
         remarksText(report);
}

bool hasGaps(const IndexingReport& report) {
  return passingFailures(report) > 0 || !report.scan.unreadableFolders.empty() ||
         report.scan.unusableNames.number() > 0 || !report.missingRoots.empty() ||
         !report.scan.linkedRoots.empty();
}

}  // namespace norvast::indexer
