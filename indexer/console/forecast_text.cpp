#include "indexer/console/forecast_text.h"

#include <cstdint>

#include "indexer/console/count_row.h"
#include "indexer/console/report_remarks.h"
#include "indexer/decisions/path_range.h"
#include "store/statement.h"

namespace norvast::indexer {
namespace {

// What AI clients would see of files.
struct Seen {
  std::uint64_t text = 0;
  std::uint64_t summary = 0;
  std::uint64_t nothing = 0;
};

Seen countSeen(const Connection& scratch, const std::vector<std::string>& paths) {
  Seen seen;
  for (const std::string& path : paths) {
    const PathRange range(path);
    Statement statement(scratch,
                        "SELECT allow_content FROM file LEFT JOIN mcp_exposure USING "
                        "(path) WHERE " +
                            PathRange::condition(),
                        range.binds());
    while (statement.step()) {
      ++(statement.text(0).empty()   ? seen.nothing
         : statement.integer(0) != 0 ? seen.text
                                     : seen.summary);
    }
  }
  return seen;
}

std::string rowUnlessZero(const std::string& name, std::uint64_t number) {
  return number > 0 ? countRow(name, number) : "";
}

}  // namespace

std::string forecastText(const Connection& scratch, const IndexingReport& report,
                         const std::vector<std::string>& paths) {
  const Seen seen = countSeen(scratch, paths);
  return countRow("new", report.added) + countRow("changed", report.changed) +
         rowUnlessZero("read again", report.readAgain) + countRow("unchanged", report.unchanged) +
         countRow("gone", report.removed) + rowUnlessZero("embedded again", report.embeddedAgain) +
         "AI clients would see of them\n" + countRow("  text, too", seen.text) +
         countRow("  summaries", seen.summary) + countRow("  nothing", seen.nothing) +
         remarksText(report) + ruledOutText(report.leftOut) +
         "nothing was written: this was a dry run\n";
}

}  // namespace norvast::indexer
