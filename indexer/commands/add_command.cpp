// The commands that read files: add and update.
#include <algorithm>
#include <filesystem>
#include <functional>
#include <iostream>
#include <optional>
#include <set>
#include <sstream>
#include <system_error>
#include <utility>
#include <variant>

#include "access/sensitive_path.h"
#include "content/isolated_extraction.h"
#include "embedding/sentence_embedding.h"
#include "indexer/commands/commands.h"
#include "indexer/console/command_output.h"
#include "indexer/console/decision_text.h"
#include "indexer/console/forecast_text.h"
#include "indexer/console/indexing_report_text.h"
#include "indexer/console/progress.h"
#include "indexer/console/terminal.h"
#include "indexer/decisions/decision_changes.h"
#include "indexer/decisions/path_range.h"
#include "indexer/index/free_space.h"
#include "indexer/index/index_database.h"
#include "indexer/index/scratch_index.h"
#include "indexer/indexing/index_files.h"
#include "indexer/indexing/territory.h"
#include "store/settings.h"

namespace norvast::indexer {
namespace {

// A path of the user's, resolved; or why it cannot be indexed.
struct Place {
  std::string path;
  std::string followed;  // what is said of a link; empty for anything else
};

std::variant<Place, std::string> placeOf(const std::string& path) {
  std::error_code failure;
  const std::string real = std::filesystem::canonical(path, failure).string();
  if (failure) return path + ": " + failure.message();
  if (!isIndexable(real))
    return path + ": a name with a line break or invalid UTF-8 is not indexed";
  if (isSensitive(real)) return path + ": it holds secrets, and is never indexed";
  if (const auto own = indexFolder(); own && PathRange(*own).contains(real)) {
    return path + ": the index itself lies there";
  }
  Place place{real, {}};
  const auto link = linkAt(path);
  if (!link) return place;
  if (PathRange(real).contains(*link)) {
    return path + ": this link leads to " + real + ", where it lies itself; name that folder";
  }
  place.followed = "following the link " + printable(path) + " to " + printable(real);
  return place;
}

// Why text is not recognised in these languages, names joined by "+"; nothing when it is.
std::optional<std::string> languageObjection(const std::string& languages) {
  std::istringstream names(languages + "+");
  for (std::string name; std::getline(names, name, '+');) {
    if (recognizesLanguage(name)) continue;
    return "--ocr-language " + printable(languages) + ": no model \"" + printable(name) +
           "\" is installed; on Debian it comes with tesseract-ocr-" + printable(name);
  }
  return std::nullopt;
}

// Each place once: one that lies at or below another is reached with it.
std::vector<std::string> withoutNested(std::vector<std::string> paths) {
  std::sort(paths.begin(), paths.end());  // a folder before what is below it
  std::vector<std::string> outer;
  for (std::string& path : paths) {
    const bool isNested = std::any_of(outer.begin(), outer.end(), [&path](const auto& folder) {
      return PathRange(folder).contains(path);
    });
    if (!isNested) outer.push_back(std::move(path));
  }
  return outer;
}

// What is said of patterns that are new.
std::string unusedPatterns(const std::vector<std::string>& patterns,
                           const std::set<std::string>& used) {
  std::string text;
  for (const std::string& pattern : patterns) {
    if (used.count(pattern) == 0)
      text += "--exclude " + printable(pattern) + ": nothing matches it now\n";
  }
  return text;
}

// Why something could not be done; nothing when it is.
using Obstacle = std::optional<std::string>;

// Calls `show` when all is indexed.
ExitStatus indexAndReport(const Connection& index, const std::vector<std::string>& paths,
                          const std::vector<std::string>& newPatterns, const RunChoices& run,
                          const std::function<Obstacle()>& show) {
  const std::vector<std::string> outer = withoutNested(paths);
  auto sentence = SentenceEmbedding::english();
  Progress progress(run.verbosity);
  IndexingReport report =
      run.run == Run::dry ? rehearseIndexing(index, sentence, outer, run.selection)
                          : indexFiles(index, sentence, outer, &progress, nullptr, run.selection);
  if (!report.obstacle) report.obstacle = show();
  if (run.run == Run::real) giveBackSpace(index);
  if (run.verbosity == Verbosity::normal) {
    std::cout << (run.run == Run::dry ? forecastText(index, report, outer)
                                      : reportText(index, report, outer))
              << unusedPatterns(newPatterns, report.leftOut.usedPatterns);
  }
  if (report.obstacle) return failToWrite(*report.obstacle);
  return hasGaps(report) ? ExitStatus::incomplete : ExitStatus::done;
}

}  // namespace

ExitStatus addCommand(const std::vector<std::string>& paths, const AddChoices& choices,
                      const RunChoices& run) {
  std::vector<std::string> roots;
  std::string remarks;
  for (const std::string& path : paths) {
    auto place = placeOf(path);
    if (const auto* why = std::get_if<std::string>(&place)) return fail(*why);
    roots.push_back(std::get<Place>(place).path);
    if (const auto& followed = std::get<Place>(place).followed; !followed.empty()) {
      remarks += followed + "\n";
    }
  }
  if (choices.recognitionLanguages) {
    if (const auto why = languageObjection(*choices.recognitionLanguages)) return fail(*why);
  }
  auto opened = run.run == Run::dry ? scratchIndex() : openIndex();
  if (const auto* why = std::get_if<std::string>(&opened)) return fail(*why);
  const auto& index = std::get<Connection>(opened);

  if (choices.recognitionLanguages &&
      !storeSetting(index, RECOGNITION_LANGUAGES_SETTING, *choices.recognitionLanguages)) {
    return failToWrite(index.lastFailure());
  }
  CurrentDecisions current(index);
  // What is indexed already is shown when it was read again: its owner may have taken out of it
  // what is not to be shown. New files are shown as they come.
  std::vector<std::string> shownAfter;
  for (const std::string& root : roots) {
    AddChoices first = choices;
    if (choices.nomination && hasIndexedFile(index, root)) {
      shownAfter.push_back(root);
      first.nomination.reset();
    }
    const DecisionChange change = addRoot(current, root, first);
    if (change.obstacle) return failToWrite(*change.obstacle);
    if (first.nomination == choices.nomination) remarks += changeRemarks(change, root);
  }
  const auto show = [&]() -> Obstacle {
    current.forget();
    for (const std::string& root : shownAfter) {
      const DecisionChange change = addRoot(current, root, choices);
      if (change.obstacle) return change.obstacle;
      if (run.verbosity == Verbosity::normal) std::cout << changeRemarks(change, root);
    }
    return std::nullopt;
  };
  if (run.verbosity == Verbosity::normal) std::cout << remarks;
  return indexAndReport(index, roots, choices.exclusions, run, show);
}

ExitStatus updateCommand(const RunChoices& run) {
  auto opened = run.run == Run::dry ? scratchIndex() : existingIndex();
  if (const auto* why = std::get_if<std::string>(&opened)) return fail(*why);
  const auto& index = std::get<Connection>(opened);
  const auto decisions = readDecisions(index);
  if (!decisions) return failToWrite(index.lastFailure());
  if (decisions->roots.empty()) {
    return fail(
        "there is nothing to keep up with yet; name a folder with: "
        "norvast_index add FOLDER");
  }
  std::vector<std::string> roots;
  for (const Root& root : decisions->roots) roots.push_back(root.path);
  return indexAndReport(index, roots, {}, run, [] { return Obstacle(); });
}

}  // namespace norvast::indexer
