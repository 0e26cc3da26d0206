// The command that keeps up with changes: watch.
#include <iostream>
#include <variant>

#include "indexer/commands/commands.h"
#include "indexer/console/command_output.h"
#include "indexer/console/report_remarks.h"
#include "indexer/console/terminal.h"
#include "indexer/decisions/decisions.h"
#include "indexer/index/index_database.h"
#include "indexer/index/watch_lock.h"
#include "indexer/indexing/territory.h"
#include "indexer/watching/watching.h"
#include "platform/stop_signal.h"
#include "store/mcp_store.h"

namespace norvast::indexer {
namespace {

// One line for what was done. What could not be read is in the index, and status lists it.
void tell(const IndexingReport& report) {
  std::cout << restrictedText(report.restrictedAgain) << std::flush;
  if (report.indexed + report.removed == 0) return;
  std::cout << count(report.indexed, "file") << " indexed, " << report.removed << " removed"
            << std::endl;
}

}  // namespace

ExitStatus watchCommand(Verbosity verbosity) {
  auto opened = openIndex();
  if (const auto* why = std::get_if<std::string>(&opened)) return fail(*why);
  const auto& index = std::get<Connection>(opened);
  const auto folder = indexFolder();
  const auto lock = folder ? WatchLock::take(*folder) : std::nullopt;
  if (!lock) {
    const auto other = folder ? watchingProcess(*folder) : std::nullopt;
    return fail(other ? "process " + std::to_string(*other) + " watches this index already"
                      : "the folder of " + indexDatabasePath().value_or("") +
                            " cannot be written to");
  }
  const auto stop = StopSignal::open();
  if (!stop) return fail("the system gives no way to be told to end");

  WatchListener listener;
  listener.indexed = [verbosity](const IndexingReport& report) {
    if (verbosity == Verbosity::normal) tell(report);
  };
  listener.remark = [](const std::string& remark) { std::cerr << remark << std::endl; };
  const auto decisions = readDecisions(index);
  if (decisions && decisions->roots.empty() && verbosity == Verbosity::normal) {
    std::cout << "nothing is indexed yet: norvast_index add PATH; waiting for that" << std::endl;
  }
  if (const auto obstacle = watchFiles(index, *stop, listener)) return failToWrite(*obstacle);
  return ExitStatus::done;
}

}  // namespace norvast::indexer
