#include "companion/index_files.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "companion/batch_writing.h"
#include "companion/decisions.h"
#include "companion/file_analysis.h"
#include "companion/path_range.h"
#include "companion/progress.h"
#include "companion/reembedding.h"
#include "embedding/sentence_embedding.h"
#include "store/statement.h"

namespace norvast {
namespace {

// What one transaction writes at the most, besides its number of files: some megabytes.
constexpr std::size_t PASSAGES_A_BATCH = 2000;

// How long analysed files wait for their transaction.
constexpr auto LONGEST_BATCH = std::chrono::seconds(2);

using Clock = std::chrono::steady_clock;

struct KnownFile {
  std::int64_t sizeBytes = 0;
  std::int64_t modified = 0;
  std::int64_t nanoseconds = 0;
  std::optional<FailedFile> failure;
  bool isThere = false;

  bool isSame(const ScannedFile& file) const {
    return sizeBytes == file.sizeBytes && modified == file.modified &&
           nanoseconds == file.nanoseconds;
  }
};

// A part of a root, or a whole one.
struct Place {
  std::string root;
  std::string start;
};

// The places at and below the path, one for each root that they lie in.
std::vector<Place> placesWithin(const Decisions& decisions, const std::string& path) {
  std::vector<Place> places;
  const Root* outer = decisions.rootOf(path);
  if (outer != nullptr) places.push_back({outer->path, path});
  for (const Root& root : decisions.rootsWithin(path)) {
    if (root.path != path) places.push_back({root.path, root.path});
  }
  return places;
}

// False when nothing is there any more; what cannot be looked at may be.
bool isThere(const std::string& path) {
  std::error_code failure;
  return std::filesystem::symlink_status(path, failure).type() !=
         std::filesystem::file_type::not_found;
}

class Indexing {
 public:
  Indexing(const Connection& index, Verbosity verbosity, const std::function<bool()>& isToStop)
      : index_(index),
        verbosity_(verbosity),
        isToStop_(isToStop),
        writing_(index),
        moved_(index),
        sentence_(SentenceEmbedding::english()) {}

  IndexingReport run(const std::vector<std::string>& paths) {
    const auto decisions = readDecisions(index_);
    if (!decisions) {
      report_.obstacle = index_.lastFailure();
      return std::move(report_);
    }
    settleScheme();
    for (const std::string& path : paths) {
      for (const Place& place : placesWithin(*decisions, path)) {
        if (!report_.obstacle) index(*decisions, place);
      }
    }
    if (areAllLookedThrough(*decisions, paths)) moved_.giveUp();
    return std::move(report_);
  }

 private:
  // Before any vector is written: those in the index are then of the same scheme.
  void settleScheme() {
    if (!sentence_) return;
    report_.modelObjection = sentence_->useInstalledModel();
    writing_.scheme = sentence_->scheme();
    Reembedding again = embedAgain(index_, *sentence_, verbosity_);
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

  void index(const Decisions& decisions, const Place& place) {
    if (!isThere(place.root)) {
      report_.missingRoots.push_back(place.root);
      return;
    }
    const std::size_t unreadableBefore = report_.scan.unreadableFolders.size();
    std::vector<ScannedFile> changed;
    Territory territory(decisions, *decisions.rootOf(place.root), report_.leftOut);
    MeetingFilter filter(territory, moved_);
    if (!readKnown(decisions, place)) {
      report_.obstacle = index_.lastFailure();
      return;
    }
    scanFiles(
        place.root, place.start, filter, [&](ScannedFile file) { sort(std::move(file), changed); },
        report_.scan);
    if (!carryRules(changed)) {
      report_.obstacle = index_.lastFailure();
      return;
    }
    if (indexChanged(std::move(changed))) (void)dropVanished(unreadableBefore);
    report_.obstacle = writing_.obstacle;
  }

  // Of the place's own root, not of those within it.
  bool readKnown(const Decisions& decisions, const Place& place) {
    known_.clear();
    const bool isAlone = placesWithin(decisions, place.start).size() == 1;
    const PathRange range(place.start);
    Statement statement(
        index_,
        std::string("SELECT path, size, modified, nanoseconds FROM file WHERE ") + AT_OR_BELOW,
        std::vector{range.path, range.firstBelow, range.firstBehind});
    while (statement.step()) {
      std::string path = statement.text(0);
      if (!isAlone && decisions.rootOf(path)->path != place.root) continue;
      known_[std::move(path)] = {statement.integer(1), statement.integer(2), statement.integer(3),
                                 std::nullopt};
    }
    auto failed = failedFiles(index_, place.start);
    if (!statement.isDone() || !failed) return false;
    for (FailedFile& file : *failed) {
      const auto known = known_.find(file.path);
      if (known != known_.end()) known->second.failure = std::move(file);
    }
    return true;
  }

  // Marks a file that is known, and keeps it when it is to be indexed.
  void sort(ScannedFile file, std::vector<ScannedFile>& changed) {
    const auto known = known_.find(file.path);
    if (known != known_.end()) known->second.isThere = true;
    const bool isUnchanged = known != known_.end() && known->second.isSame(file) &&
                             !(known->second.failure && isTriedAgain(*known->second.failure));
    if (isUnchanged) {
      ++report_.unchanged;
    } else {
      changed.push_back(std::move(file));
    }
  }

  // Before what was moved is indexed where it lies now.
  bool carryRules(std::vector<ScannedFile>& changed) {
    const auto carried = moved_.carry();
    if (!carried || carried->empty()) return carried.has_value();
    report_.movedRules.insert(report_.movedRules.end(), carried->begin(), carried->end());
    const auto decisions = readDecisions(index_);
    if (!decisions) return false;
    std::erase_if(changed,
                  [&](const ScannedFile& file) { return !decisions->isIndexed(file.path); });
    return true;
  }

  // False when the index could not be written to the end.
  bool indexChanged(std::vector<ScannedFile> changed) {
    Progress progress(changed.size(), verbosity_ == Verbosity::quiet);
    for (ScannedFile& file : changed) {
      if (isToStop_ && isToStop_()) break;
      indexFile(std::move(file));
      if (isBatchFull() && !writeBatch()) return false;
      progress.step();
    }
    return writeBatch();
  }

  void indexFile(ScannedFile file) {
    FileAnalysis analysis = analyseFile(file.path, sentence_);
    const auto known = known_.find(file.path);
    if (analysis.failure == ReadFailure::gone) {
      if (known != known_.end()) known->second.isThere = false;
      return;
    }
    if (analysis.failure) {
      report_.failures.push_back({file.path, *analysis.failure, READER_VERSION});
      if (known != known_.end() && isStillSo(known->second, file, report_.failures.back())) {
        ++report_.unchanged;
        return;
      }
    }
    passages_ += analysis.passages.size();
    batch_.push_back({std::move(file), std::move(analysis)});
  }

  // Tried again with the same outcome, which is written down already.
  static bool isStillSo(const KnownFile& known, const ScannedFile& file, const FailedFile& failed) {
    return known.isSame(file) && known.failure && known.failure->reason == failed.reason &&
           known.failure->reader == failed.reader;
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

  // What lies in a folder that this place's scan could not read is hidden, not gone.
  bool dropVanished(std::size_t unreadableBefore) {
    const auto& unreadable = report_.scan.unreadableFolders;
    const std::vector<PathRange> hidden(
        unreadable.begin() + static_cast<std::ptrdiff_t>(unreadableBefore), unreadable.end());
    std::vector<std::string> vanished;
    for (const auto& [path, known] : known_) {
      const bool isHidden = !known.isThere && std::any_of(hidden.begin(), hidden.end(),
                                                          [&path = path](const PathRange& folder) {
                                                            return folder.contains(path);
                                                          });
      if (!known.isThere && !isHidden) vanished.push_back(path);
    }
    std::sort(vanished.begin(), vanished.end());  // neighbours lie on the same pages
    return writing_.remove(vanished, report_.removed);
  }

  const Connection& index_;
  Verbosity verbosity_;
  const std::function<bool()>& isToStop_;
  BatchWriting writing_;
  MovedRules moved_;
  std::optional<SentenceEmbedding> sentence_;
  IndexingReport report_;
  std::unordered_map<std::string, KnownFile> known_;  // of the place at hand
  std::vector<AnalysedFile> batch_;
  std::size_t passages_ = 0;  // in the batch
  Clock::time_point batchStart_ = Clock::now();
};

}  // namespace

IndexingReport indexFiles(const Connection& index, const std::vector<std::string>& paths,
                          Verbosity verbosity, const std::function<bool()>& isToStop) {
  return Indexing(index, verbosity, isToStop).run(paths);
}

IndexingReport removeUnindexed(const Connection& index, const std::string& path) {
  IndexingReport report;
  const auto decisions = readDecisions(index);
  const PathRange range(path);
  Statement statement(index, std::string("SELECT path FROM file WHERE ") + AT_OR_BELOW,
                      std::vector{range.path, range.firstBelow, range.firstBehind});
  std::vector<std::string> unindexed;
  while (decisions && statement.step()) {
    std::string file = statement.text(0);
    if (!decisions->isIndexed(file)) unindexed.push_back(std::move(file));
  }
  BatchWriting writing(index);
  if (!statement.isDone()) {
    report.obstacle = index.lastFailure();
  } else if (!writing.remove(unindexed, report.removed)) {
    report.obstacle = writing.obstacle;
  }
  return report;
}

}  // namespace norvast
