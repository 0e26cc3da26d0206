#include "indexer/indexing/index_files.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <set>
#include <span>
#include <string>
#include <system_error>
#include <utility>

#include "indexer/decisions/decisions.h"
#include "indexer/decisions/path_range.h"
#include "indexer/decisions/restricted_files.h"
#include "indexer/decisions/unfinished_removals.h"
#include "indexer/indexing/batch_writing.h"
#include "indexer/indexing/file_analysis.h"
#include "indexer/indexing/known_files.h"
#include "indexer/indexing/meeting_filter.h"
#include "indexer/indexing/reading_order.h"
#include "indexer/indexing/reembedding.h"
#include "store/settings.h"
#include "store/statement.h"

namespace norvast::indexer {
namespace {

// What one transaction writes at the most, besides its number of files: some megabytes.
constexpr std::size_t PASSAGES_A_BATCH = 2000;

// How long analysed files wait for their transaction.
constexpr auto LONGEST_BATCH = std::chrono::seconds(2);

using Clock = std::chrono::steady_clock;

// False when nothing is there any more; what cannot be looked at may be.
bool isThere(const std::string& path) {
  std::error_code failure;
  return std::filesystem::symlink_status(path, failure).type() !=
         std::filesystem::file_type::not_found;
}

ReadingOptions readingOptions(const Connection& index) {
  ReadingOptions options;
  if (auto chosen = setting(index, RECOGNITION_LANGUAGES_SETTING)) options.languages = *chosen;
  return options;
}

// Whether files are read, or it is only told which would be.
enum class Reading { done, spared };

struct Work {
  Selection selection = Selection::changed;
  Reading reading = Reading::done;
  IndexingProgress* progress = nullptr;
};

class Indexing {
 public:
  Indexing(const Connection& index, std::optional<SentenceEmbedding>& sentence, const Work& work,
           const std::function<bool()>& isToStop)
      : index_(index),
        sentence_(sentence),
        work_(work),
        isToStop_(isToStop),
        writing_(index),
        moved_(index),
        options_(readingOptions(index)) {}

  IndexingReport run(const std::vector<std::string>& paths) {
    const auto decisions = readDecisions(index_);
    if (!decisions) {
      report_.obstacle = index_.lastFailure();
      return std::move(report_);
    }
    finishRemovals();
    if (!report_.obstacle) settleScheme();
    for (const std::string& path : paths) {
      for (const RootPlace& place : placesWithin(*decisions, path)) {
        if (!report_.obstacle) index(*decisions, place);
      }
    }
    if (areAllLookedThrough(*decisions, paths)) moved_.giveUp();
    return std::move(report_);
  }

 private:
  void finishRemovals() {
    const auto paths = unfinishedRemovals(index_);
    if (!paths) report_.obstacle = index_.lastFailure();
    for (const std::string& path : paths.value_or(std::vector<std::string>())) {
      const IndexingReport done = removeUnindexed(index_, path);
      report_.removed += done.removed;
      if (!report_.obstacle) report_.obstacle = done.obstacle;
    }
  }

  // Before any vector is written: those in the index are then of the same scheme.
  void settleScheme() {
    if (!sentence_) return;
    report_.modelObjection = sentence_->useInstalledModel();
    if (work_.reading == Reading::spared) {
      report_.embeddedAgain = countToEmbedAgain(index_, *sentence_);
      return;
    }
    writing_.scheme = sentence_->scheme();
    Reembedding again = embedAgain(index_, *sentence_, work_.progress);
    report_.embeddedAgain = again.files;
    report_.obstacle = std::move(again.obstacle);
  }

  // Whether nothing of the roots was passed over.
  bool areAllLookedThrough(const Decisions& decisions,
                           const std::vector<std::string>& paths) const {
    const auto isWithin = [&paths](const Root& root) {
      return std::any_of(paths.begin(), paths.end(), [&root](const std::string& path) {
        return PathRange(path).contains(root.path);
      });
    };
    return !report_.obstacle && report_.missingRoots.empty() &&
           report_.scan.unreadableFolders.empty() &&
           std::all_of(decisions.roots.begin(), decisions.roots.end(), isWithin);
  }

  void index(const Decisions& decisions, const RootPlace& place) {
    if (!isThere(place.root)) {
      report_.missingRoots.push_back(place.root);
      return;
    }
    const std::size_t unreadableBefore = report_.scan.unreadableFolders.size();
    std::vector<ScannedFile> changed;
    // A root before this one may have taken hours, and its own scan takes minutes.
    const bool isLong = place.start == place.root;
    if (isLong) moved_.look();
    Territory territory(decisions, *decisions.rootOf(place.root), report_.leftOut);
    MeetingFilter filter(territory, moved_);
    if (!known_.read(index_, decisions, place)) {
      report_.obstacle = index_.lastFailure();
      return;
    }
    scanFiles(
        place.root, place.start, filter, [&](ScannedFile file) { sort(std::move(file), changed); },
        report_.scan);
    if (isLong) moved_.look();
    report_.obstacle = carryRules(changed);
    if (report_.obstacle) return;
    if (indexChanged(std::move(changed))) (void)dropVanished(unreadableBefore);
    const auto& note = isLong ? noteAllRestricted : noteLeftOut;
    if (!note(index_, decisions.rules, place.start)) {
      report_.obstacle = index_.lastFailure();
      return;
    }
    report_.obstacle = writing_.obstacle;
  }

  // Keeps a file that is to be indexed.
  void sort(ScannedFile file, std::vector<ScannedFile>& changed) {
    switch (known_.meet(file)) {
      case FileChange::none:
        if (work_.selection == Selection::changed) {
          ++report_.unchanged;
          return;
        }
        ++report_.readAgain;
        break;
      case FileChange::failedBefore:
        ++report_.readAgain;
        break;
      case FileChange::isNew:
        ++report_.added;
        break;
      case FileChange::content:
        ++report_.changed;
        break;
    }
    changed.push_back(std::move(file));
  }

  // Before what was moved is indexed where it lies now, while the scan went on, too. Says why the
  // index could not be written.
  std::optional<std::string> carryRules(std::vector<ScannedFile>& changed) {
    meetFoldersOf(changed);
    auto [carried, obstacle] = moved_.carry();
    if (obstacle) return obstacle;
    std::vector<std::string> files;
    files.reserve(changed.size());
    for (const ScannedFile& file : changed) files.push_back(file.path);
    auto again = restrictAgain(index_, files);
    if (again.obstacle) return again.obstacle;
    if (carried.empty() && again.rules.empty()) return std::nullopt;
    std::move(carried.begin(), carried.end(), std::back_inserter(report_.movedRules));
    std::move(again.rules.begin(), again.rules.end(), std::back_inserter(report_.restrictedAgain));
    return dropLeftOut(changed);
  }

  // What is left out by a rule that was carried is not indexed, and was not what is indexed there.
  std::optional<std::string> dropLeftOut(std::vector<ScannedFile>& changed) {
    writing_.forgetDecisions();
    const auto decisions = readDecisions(index_);
    if (!decisions) return index_.lastFailure();
    std::erase_if(changed, [&](const ScannedFile& file) {
      const bool isLeftOut = !decisions->isIndexed(file.path);
      if (isLeftOut) known_.lose(file.path);
      return isLeftOut;
    });
    return std::nullopt;
  }

  void meetFoldersOf(const std::vector<ScannedFile>& files) {
    std::set<std::string, std::less<>> met;
    for (const ScannedFile& file : files) {
      moved_.meet(file.path);
      for (auto folder = parentOf(file.path); folder; folder = parentOf(*folder)) {
        if (!met.emplace(*folder).second) break;
        moved_.meet(std::string(*folder));
      }
    }
  }

  // False when the index could not be written to the end.
  bool indexChanged(std::vector<ScannedFile> changed) {
    putSampleFirst(changed);
    std::vector<FileWork> works;
    works.reserve(changed.size());
    for (const ScannedFile& file : changed) works.push_back({expectedKind(file), file.sizeBytes});
    if (work_.progress != nullptr) work_.progress->begin(works);
    for (std::size_t at = 0; at < changed.size(); ++at) {
      if (isToStop_ && isToStop_()) break;
      indexFile(std::move(changed[at]));
      if (isBatchFull() && !writeBatch()) return false;
      if (work_.progress != nullptr) work_.progress->finish(works[at]);
    }
    return writeBatch();
  }

  void indexFile(ScannedFile file) {
    FileAnalysis analysis = work_.reading == Reading::done
                                ? analyseFile(file.path, options_, sentence_)
                                : FileAnalysis();
    if (analysis.failure == ReadFailure::gone) {
      known_.lose(file.path);
      return;
    }
    if (analysis.failure) {
      report_.failures.push_back({file.path, *analysis.failure, READER_VERSION});
      if (known_.isStillSo(file, report_.failures.back())) {
        ++report_.unchanged;
        return;
      }
    }
    passages_ += analysis.passages.size();
    batch_.push_back({std::move(file), std::move(analysis)});
  }

  bool isBatchFull() const {
    return batch_.size() >= FILES_A_BATCH || passages_ >= PASSAGES_A_BATCH ||
           Clock::now() - batchStart_ > LONGEST_BATCH;
  }

  bool writeBatch() {
    const bool isWritten = batch_.empty() || writing_.replace(batch_, report_.indexed);
    batch_.clear();
    passages_ = 0;
    batchStart_ = Clock::now();
    return isWritten;
  }

  bool dropVanished(std::size_t unreadableBefore) {
    const std::span unreadable(report_.scan.unreadableFolders);
    return writing_.remove(known_.vanished(unreadable.subspan(unreadableBefore)), report_.removed);
  }

  const Connection& index_;
  std::optional<SentenceEmbedding>& sentence_;
  Work work_;
  const std::function<bool()>& isToStop_;
  BatchWriting writing_;
  MovedRules moved_;
  ReadingOptions options_;
  IndexingReport report_;
  KnownFiles known_;  // of the place at hand
  std::vector<AnalysedFile> batch_;
  std::size_t passages_ = 0;  // in the batch
  Clock::time_point batchStart_ = Clock::now();
};

}  // namespace

IndexingReport indexFiles(const Connection& index, std::optional<SentenceEmbedding>& sentence,
                          const std::vector<std::string>& paths, IndexingProgress* progress,
                          const std::function<bool()>& isToStop, Selection selection) {
  return Indexing(index, sentence, {selection, Reading::done, progress}, isToStop).run(paths);
}

IndexingReport rehearseIndexing(const Connection& scratch,
                                std::optional<SentenceEmbedding>& sentence,
                                const std::vector<std::string>& paths, Selection selection) {
  const std::function<bool()> never;
  return Indexing(scratch, sentence, {selection, Reading::spared, nullptr}, never).run(paths);
}

IndexingReport removeUnindexed(const Connection& index, const std::string& path) {
  IndexingReport report;
  const auto decisions = readDecisions(index);
  const PathRange range(path);
  Statement statement(index, "SELECT path FROM file WHERE " + PathRange::condition(),
                      range.binds());
  std::vector<std::string> unindexed;
  while (decisions && statement.step()) {
    std::string file = statement.text(0);
    if (!decisions->isIndexed(file)) unindexed.push_back(std::move(file));
  }
  BatchWriting writing(index);
  const bool isDone =
      statement.isDone() && writing.remove(unindexed, report.removed) && strikeRemoval(index, path);
  if (!isDone) report.obstacle = writing.obstacle ? writing.obstacle : index.lastFailure();
  return report;
}

}  // namespace norvast::indexer
