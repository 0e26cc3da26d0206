// Exit status: how a command of norvast_index ended, as its caller sees it.
#pragma once

namespace norvast::indexer {

// Where it is not `done`, one line on standard error says what to do.
enum class ExitStatus {
  done = 0,
  failed = 1,      // nothing, or not all of it, was done
  usage = 2,       // the command line is not understood
  incomplete = 3,  // done, but for files or folders that could not be read
};

}  // namespace norvast::indexer
