// norvast_index: fills and steers the index where the desktop app does not run.
#include <sys/stat.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <functional>
#include <iostream>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "indexer/commands/client_config.h"
#include "indexer/commands/commands.h"
#include "indexer/console/terminal.h"

namespace norvast::indexer {
namespace {

// A word with more of them is taken for another word.
constexpr std::size_t MOST_TYPING_ERRORS = 2;

// What the command line says, and the command that it chose.
struct CommandLine {
  std::vector<std::string> paths;
  std::string nominate;
  AddChoices choices;
  bool leavesOutGitIgnored = false;
  bool takesGitIgnored = false;
  std::string position;
  std::string client;
  bool isQuiet = false;
  bool isDry = false;
  bool isForced = false;
  bool isContent = false;
  bool isMetadata = false;
  bool isFollowing = false;
  bool isWithoutText = false;
  bool isJson = false;
  std::uint64_t last = 20;
  std::function<ExitStatus()> command;
};

std::optional<Nomination> nominationOf(const std::string& word) {
  if (word == "metadata") return Nomination::metadata;
  if (word == "content") return Nomination::content;
  return std::nullopt;
}

CLI::App* addSubcommand(CLI::App& app, const std::string& name, const std::string& description,
                        const std::string& example) {
  CLI::App* subcommand = app.add_subcommand(name, description);
  subcommand->footer("Example: " + example);
  return subcommand;
}

void addPaths(CLI::App& subcommand, CommandLine& line, const std::string& description) {
  subcommand.add_option("PATH", line.paths, description)->required();
}

void addQuiet(CLI::App& subcommand, CommandLine& line) {
  subcommand.add_flag("--quiet", line.isQuiet, "Say nothing unless something fails");
}

void addDryRun(CLI::App& subcommand, CommandLine& line) {
  subcommand.add_flag("--dry-run", line.isDry, "Say what would be done, and write nothing");
}

Verbosity verbosityOf(const CommandLine& line) {
  return line.isQuiet ? Verbosity::quiet : Verbosity::normal;
}

CLI::Option* addJson(CLI::App& subcommand, CommandLine& line) {
  return subcommand.add_flag("--json", line.isJson, "Print JSON, for scripts");
}

Form formOf(const CommandLine& line) { return line.isJson ? Form::json : Form::text; }

RunChoices runOf(const CommandLine& line) {
  return {line.isDry ? Run::dry : Run::real, line.isForced ? Selection::all : Selection::changed,
          verbosityOf(line)};
}

void defineAdd(CLI::App& app, CommandLine& line) {
  CLI::App* add = addSubcommand(app, "add", "Index files and folders from now on",
                                "norvast_index add --nominate content ~/Documents");
  addPaths(*add, line, "Files, or folders with all that is below them");
  add->add_option("--nominate", line.nominate,
                  "Show what is indexed to AI clients: names, sizes and "
                  "summaries, or text too")
      ->check(CLI::IsMember({"metadata", "content"}));
  add->add_option("--exclude", line.choices.exclusions,
                  "Leave out names, or paths below PATH, that match this shell "
                  "pattern; remembered")
      ->type_name("PATTERN")
      ->allow_extra_args(false);  // one value each: a path may follow
  add->add_option("--no-exclude", line.choices.noExclusions, "Forget such a pattern")
      ->type_name("PATTERN")
      ->allow_extra_args(false);
  CLI::Option* all = add->add_flag("--no-gitignore", line.takesGitIgnored,
                                   "Take in what git ignores in a work tree; remembered");
  add->add_flag("--gitignore", line.leavesOutGitIgnored, "Leave it out again (the default)")
      ->excludes(all);
  add->add_option("--ocr-language", line.choices.recognitionLanguages,
                  "Recognise text in pictures in these languages, such as deu+eng; remembered for "
                  "all folders")
      ->type_name("LANGUAGES");
  add->add_flag("--force", line.isForced, "Read unchanged files again, too");
  addDryRun(*add, line);
  addQuiet(*add, line);
  add->callback([&line] {
    line.choices.nomination = nominationOf(line.nominate);
    if (line.leavesOutGitIgnored) line.choices.gitIgnored = GitIgnored::leftOut;
    if (line.takesGitIgnored) line.choices.gitIgnored = GitIgnored::indexed;
    line.command = [&line] { return addCommand(line.paths, line.choices, runOf(line)); };
  });

  CLI::App* update = addSubcommand(app, "update", "Take up what changed in all that was added",
                                   "norvast_index update --quiet");
  addDryRun(*update, line);
  addQuiet(*update, line);
  update->callback([&line] { line.command = [&line] { return updateCommand(runOf(line)); }; });
}

void defineWatch(CLI::App& app, CommandLine& line) {
  CLI::App* watch = addSubcommand(app, "watch", "Keep up with changes until told to end",
                                  "norvast_index watch --quiet");
  addQuiet(*watch, line);
  watch->callback([&line] { line.command = [&line] { return watchCommand(verbosityOf(line)); }; });
}

void defineNominations(CLI::App& app, CommandLine& line) {
  CLI::App* nominate = addSubcommand(app, "nominate", "Show files to AI clients, those to come too",
                                     "norvast_index nominate --content ~/Documents/report.pdf");
  addPaths(*nominate, line, "Files, or folders with all that is below them");
  CLI::Option* metadata = nominate->add_flag(
      "--metadata", line.isMetadata, "Names, sizes, times and summaries alone (the default)");
  nominate->add_flag("--content", line.isContent, "Their text, too")->excludes(metadata);
  nominate->callback([&line] {
    line.command = [&line] {
      return nominateCommand(line.paths,
                             line.isContent ? Nomination::content : Nomination::metadata);
    };
  });

  CLI::App* withdraw =
      addSubcommand(app, "withdraw", "Show files to AI clients no longer; they stay indexed",
                    "norvast_index withdraw ~/Documents/private");
  addPaths(*withdraw, line, "Files, or folders with all that is below them");
  withdraw->callback([&line] { line.command = [&line] { return withdrawCommand(line.paths); }; });

  CLI::App* remove = addSubcommand(app, "remove", "Forget files; they stay on disk",
                                   "norvast_index remove ~/Documents/old");
  addPaths(*remove, line, "Files, or folders with all that is indexed below them");
  remove->callback([&line] { line.command = [&line] { return removeCommand(line.paths); }; });
}

void defineRules(CLI::App& app, CommandLine& line) {
  CLI::App* rules = addSubcommand(app, "rules", "Show what was decided, and how many files follow",
                                  "norvast_index rules clear ~/Documents/private");
  CLI::Option* json = addJson(*rules, line);
  rules->callback([&line] {
    if (!line.command) line.command = [&line] { return rulesCommand(formOf(line)); };
  });
  CLI::App* clear =
      addSubcommand(*rules, "clear", "Decide nothing about these paths themselves any longer",
                    "norvast_index rules clear ~/Documents/private");
  clear->excludes(json);
  addPaths(*clear, line, "Files or folders that have a rule of their own");
  clear->callback([&line] { line.command = [&line] { return clearRulesCommand(line.paths); }; });
}

void defineSwitch(CLI::App& app, CommandLine& line, const std::string& name,
                  const std::string& description, ExitStatus (*command)(Switch)) {
  CLI::App* subcommand = addSubcommand(app, name, description, "norvast_index " + name + " off");
  subcommand->add_option("POSITION", line.position, "on or off")
      ->required()
      ->check(CLI::IsMember({"on", "off"}));
  subcommand->callback([&line, command] {
    line.command = [&line, command] {
      return command(line.position == "on" ? Switch::on : Switch::off);
    };
  });
}

// Why the word is no number from 0 on, or an empty text.
std::string objectionToCount(const std::string& word) {
  const bool isCount = !word.empty() && word.find_first_not_of("0123456789") == std::string::npos;
  return isCount ? "" : printable(word) + " is no number of events";
}

void defineViews(CLI::App& app, CommandLine& line) {
  CLI::App* status = addSubcommand(app, "status", "Show counts, switches and where the index lies",
                                   "norvast_index status");
  CLI::Option* withoutText =
      status->add_flag("--without-text", line.isWithoutText, "List the files that have no text");
  status->add_option("FOLDER", line.paths, "Those below this folder alone")
      ->expected(0, 1)
      ->needs(withoutText);
  (void)addJson(*status, line);
  status->callback([&line] {
    line.command = [&line] {
      return line.isWithoutText ? withoutTextCommand(line.paths, formOf(line))
                                : statusCommand(formOf(line));
    };
  });

  CLI::App* show = addSubcommand(app, "show", "Show what the index holds of files",
                                 "norvast_index show ~/Documents/report.pdf");
  addPaths(*show, line, "Indexed files");
  (void)addJson(*show, line);
  show->callback(
      [&line] { line.command = [&line] { return showCommand(line.paths, formOf(line)); }; });

  CLI::App* audit = addSubcommand(app, "audit", "Show what AI clients looked at and were refused",
                                  "norvast_index audit --last 50 --follow");
  audit->add_option("--last", line.last, "How many events")
      ->check(CLI::Validator(objectionToCount, "", ""))
      ->capture_default_str();
  audit->add_flag("--follow", line.isFollowing, "Go on with each new event");
  (void)addJson(*audit, line);
  audit->callback([&line] {
    line.command = [&line] {
      return auditCommand(line.last, line.isFollowing ? Follow::yes : Follow::no, formOf(line));
    };
  });

  CLI::App* config =
      addSubcommand(app, "client-config", "Print what registers norvast_mcp with a client",
                    "norvast_index client-config --client zed");
  config->add_option("--client", line.client, "In the format of this client's own file")
      ->check(CLI::IsMember(clientNames()));
  config->callback(
      [&line] { line.command = [&line] { return clientConfigCommand(line.client); }; });
}

// How many characters are inserted, deleted or replaced to make one word of the other
// (https://en.wikipedia.org/wiki/Levenshtein_distance).
std::size_t editDistance(std::string_view one, std::string_view other) {
  std::vector<std::size_t> row(other.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < one.size(); ++i) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < other.size(); ++j) {
      const std::size_t replaced = diagonal + (one[i] == other[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

// What is wrong with the command line. For a first word that is no command, the answer names the
// command that is at most two typing errors away, or else all commands.
std::string objection(const CLI::App& app, const CLI::ParseError& error, int argc, char** argv) {
  const std::string word = argc > 1 ? argv[1] : "-";
  std::string known;
  std::string nearest;
  std::size_t leastErrors = MOST_TYPING_ERRORS + 1;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    if (word.starts_with('-') || command->get_name() == word) return error.what();
    known += (known.empty() ? "" : ", ") + command->get_name();
    const std::size_t errors = editDistance(word, command->get_name());
    if (errors < leastErrors) {
      leastErrors = errors;
      nearest = command->get_name();
    }
  }
  if (!nearest.empty()) {
    return "there is no command \"" + printable(word) + "\"; did you mean \"" + nearest + "\"?";
  }
  return "there is no command " + printable(word) + ", but " + known;
}

ExitStatus run(int argc, char** argv) {
  CLI::App app("Fills and steers the index that norvast_mcp answers from.", "norvast_index");
  app.require_subcommand(1);
  app.set_version_flag("--version", "norvast_index " NORVAST_VERSION);
  CommandLine line;
  defineAdd(app, line);
  defineWatch(app, line);
  defineNominations(app, line);
  defineRules(app, line);
  defineSwitch(app, line, "access", "Turn AI access as a whole on or off", accessCommand);
  defineSwitch(app, line, "library",
               "Let AI clients see metadata and summaries of every indexed file, or not",
               libraryCommand);
  defineViews(app, line);

  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& help) {
    (void)app.exit(help);  // prints it
    return ExitStatus::done;
  } catch (const CLI::ParseError& error) {
    std::cerr << "norvast_index: " << objection(app, error, argc, argv)
              << " (see norvast_index --help)\n";
    return ExitStatus::usage;
  }
  return line.command();
}

}  // namespace
}  // namespace norvast::indexer

int main(int argc, char** argv) {
  (void)umask(S_IRWXG | S_IRWXO);  // what it creates, texts of files in it, is for the user alone
  try {
    return static_cast<int>(norvast::indexer::run(argc, argv));
  } catch (const std::exception& error) {  // no memory is left, or a folder vanished under us
    (void)std::fprintf(stderr, "norvast_index: %s; run it again\n", error.what());
    return static_cast<int>(norvast::indexer::ExitStatus::failed);
  }
}
