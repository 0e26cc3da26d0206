// Watching: keeps the index in line with what changes on disk, as it changes.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "indexer/indexing/index_files.h"
#include "platform/stop_signal.h"
#include "store/connection.h"

namespace norvast::indexer {

// Told of what was done, and of what the user should know.
struct WatchListener {
  std::function<void(const IndexingReport&)> indexed;
  std::function<void(const std::string&)> remark;  // one line
};

// Brings all roots up to date, and then each file soon after it has come to rest, until the signal
// comes. A folder that was moved keeps its rows. Where the system drops events everything is looked
// through again; what there is no room to watch is looked through once a minute. Roots and rules
// that another command changes count at once. Nothing when it ended by the signal, else why it
// cannot go on; the index is whole in any case.
std::optional<std::string> watchFiles(const Connection& index, const StopSignal& stop,
                                      const WatchListener& listener);

}  // namespace norvast::indexer
