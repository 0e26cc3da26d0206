// Commands: what each subcommand of norvast_index does, says and exits with.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "companion/nominations.h"

namespace norvast {

// Exit statuses. Errors are one line on standard error that says what to do.
enum class ExitStatus {
  done = 0,
  failed = 1,      // nothing, or not all of it, was done
  usage = 2,       // the command line is not understood
  incomplete = 3,  // done, but for files or folders that could not be read
};

enum class Verbosity { normal, quiet };
enum class Switch { on, off };

// Paths are as the user wrote them: files or folders, relative ones too.
ExitStatus addCommand(const std::vector<std::string>& paths, std::optional<Nomination> nomination,
                      Verbosity verbosity);
ExitStatus nominateCommand(const std::vector<std::string>& paths, Nomination nomination);
ExitStatus withdrawCommand(const std::vector<std::string>& paths);
ExitStatus removeCommand(const std::vector<std::string>& paths);

// AI access as a whole; metadata of the whole library.
ExitStatus accessCommand(Switch position);
ExitStatus libraryCommand(Switch position);

ExitStatus statusCommand();

// The last events of the trail, then, with `follow`, each new one until the program is stopped.
enum class Follow { no, yes };
ExitStatus auditCommand(std::uint64_t last, Follow follow);

// The JSON that registers the server of this installation with a client.
ExitStatus clientConfigCommand();

}  // namespace norvast
