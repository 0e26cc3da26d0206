// Commands: what each subcommand of norvast_index does, says and exits with.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "indexer/console/exit_status.h"
#include "indexer/console/progress.h"
#include "indexer/decisions/decision_changes.h"
#include "indexer/indexing/index_files.h"
#include "store/connection.h"

namespace norvast::indexer {

enum class Switch { on, off };

// What a command shows, for a person or for a script; the exit status and errors are the same.
enum class Form { text, json };

// Whether a run does its work, or says what it would do and writes nothing, not even an index.
enum class Run { real, dry };

struct RunChoices {
  Run run = Run::real;
  Selection selection = Selection::changed;
  Verbosity verbosity = Verbosity::normal;
};

// Paths are as the user wrote them: files or folders, relative ones too.
ExitStatus addCommand(const std::vector<std::string>& paths, const AddChoices& choices,
                      const RunChoices& run);
// Brings everything that was added up to date.
ExitStatus updateCommand(const RunChoices& run);
// The same, and then follows each change until the program is told to end.
ExitStatus watchCommand(Verbosity verbosity);

ExitStatus nominateCommand(const std::vector<std::string>& paths, Nomination nomination);
ExitStatus withdrawCommand(const std::vector<std::string>& paths);
ExitStatus removeCommand(const std::vector<std::string>& paths);

// True if the index knows a file at or below the path, as indexedPath gives it. False, too, when
// the index cannot be read: Connection::hasFailed says so.
bool hasIndexedFile(const Connection& index, const std::string& path);

// What was decided; or decided no longer.
ExitStatus rulesCommand(Form form);
ExitStatus clearRulesCommand(const std::vector<std::string>& paths);

// AI access as a whole; metadata of the whole library.
ExitStatus accessCommand(Switch position);
ExitStatus libraryCommand(Switch position);

ExitStatus statusCommand(Form form);
// The files that have no text, and why: all, or those at and below the one path that is named.
ExitStatus withoutTextCommand(const std::vector<std::string>& paths, Form form);

// What the index holds of each file.
ExitStatus showCommand(const std::vector<std::string>& paths, Form form);

// The last events of the trail, then, with `follow`, each new one until the program is stopped.
// As JSON an object on a line each.
enum class Follow { no, yes };
ExitStatus auditCommand(std::uint64_t last, Follow follow, Form form);

// What registers the server of this installation with a client: in the format of the one that is
// named (indexer/commands/client_config.h), with its usual place on standard error, or in the
// general form.
ExitStatus clientConfigCommand(const std::string& client);

}  // namespace norvast::indexer
