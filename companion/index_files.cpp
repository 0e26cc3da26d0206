#include "companion/index_files.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <unordered_map>
#include <utility>

#include "companion/file_analysis.h"
#include "companion/index_writer.h"
#include "companion/path_range.h"
#include "companion/progress.h"
#include "embedding/sentence_embedding.h"
#include "store/statement.h"
#include "store/transaction.h"

namespace norvast {
namespace {

// What one transaction writes at the most: some milliseconds of write lock, some megabytes.
constexpr std::size_t FILES_A_BATCH = 500;
constexpr std::size_t PASSAGES_A_BATCH = 2000;

// How long analysed files wait for their transaction.
constexpr auto LONGEST_BATCH = std::chrono::seconds(2);

// Stands for the nanoseconds of a file that could not be read: no file has them, so it is tried
// anew.
constexpr std::int64_t NOT_READ = -1;

struct KnownFile {
  std::int64_t sizeBytes = 0;
  std::int64_t modified = 0;
  std::int64_t nanoseconds = 0;
  bool isThere = false;

  bool isSame(const ScannedFile& file) const {
    return sizeBytes == file.sizeBytes && modified == file.modified &&
           nanoseconds == file.nanoseconds;
  }
};

struct AnalysedFile {
  ScannedFile file;
  FileAnalysis analysis;
};

class Indexing {
 public:
  Indexing(const Connection& index, const IndexingOptions& options)
      : index_(index), options_(options), writer_(index), sentence_(SentenceEmbedding::english()) {}

  void run(const std::string& root) {
    readKnown(root);
    const std::size_t unreadableBefore = report.scan.unreadableFolders.size();
    std::vector<ScannedFile> changed;
    scanFiles(
        root, [&](ScannedFile file) { sort(std::move(file), changed); }, report.scan);
    indexChanged(std::move(changed));
    nominateUnchanged();
    dropVanished(unreadableBefore);
  }

  IndexingReport report;

 private:
  void readKnown(const std::string& root) {
    known_.clear();
    const PathRange range(root);
    Statement statement(
        index_,
        std::string("SELECT path, size, modified, nanoseconds FROM file WHERE ") + AT_OR_BELOW,
        std::vector{range.path, range.firstBelow, range.firstBehind});
    while (statement.step()) {
      known_[statement.text(0)] = {statement.integer(1), statement.integer(2),
                                   statement.integer(3)};
    }
  }

  // Marks a file that is known, and keeps it when it is to be indexed.
  void sort(ScannedFile file, std::vector<ScannedFile>& changed) {
    const auto known = known_.find(file.path);
    if (known != known_.end()) known->second.isThere = true;
    if (known == known_.end() || !known->second.isSame(file)) {
      changed.push_back(std::move(file));
      return;
    }
    ++report.unchanged;
    if (options_.nomination) unchanged_.push_back(std::move(file.path));
  }

  void indexChanged(std::vector<ScannedFile> changed) {
    Progress progress(changed.size(), options_.isQuiet);
    for (ScannedFile& file : changed) {
      if (!report.isComplete) break;  // what can't be written need not be read
      if (access(file.path.c_str(), R_OK) != 0) {
        report.unreadableFiles.push_back(file.path);
        file.nanoseconds = NOT_READ;
      }
      FileAnalysis analysis = analyseFile(file.path, sentence_);
      passages_ += analysis.passages.size();
      batch_.push_back({std::move(file), std::move(analysis)});
      if (isBatchFull()) writeBatch();
      progress.step();
    }
    writeBatch();
  }

  bool isBatchFull() const {
    return batch_.size() >= FILES_A_BATCH || passages_ >= PASSAGES_A_BATCH ||
           std::chrono::steady_clock::now() - batchStart_ > LONGEST_BATCH;
  }

  void writeBatch() {
    if (batch_.empty()) return;
    const bool isWritten = inTransaction([this] {
      return std::all_of(batch_.begin(), batch_.end(), [this](const AnalysedFile& analysed) {
        return writer_.replace(analysed.file, analysed.analysis) && nominate(analysed.file.path);
      });
    });
    if (isWritten) {
      report.indexed += batch_.size();
      report.nominated += options_.nomination ? batch_.size() : 0;
      report.withoutText += static_cast<std::uint64_t>(std::count_if(
          batch_.begin(), batch_.end(),
          [](const AnalysedFile& analysed) { return analysed.analysis.failure.has_value(); }));
    }
    batch_.clear();
    passages_ = 0;
    batchStart_ = std::chrono::steady_clock::now();
  }

  bool nominate(const std::string& path) {
    return !options_.nomination || writer_.nominate(path, *options_.nomination);
  }

  void nominateUnchanged() {
    forEachBatch(
        unchanged_, [this](const std::string& path) { return nominate(path); }, report.nominated);
    unchanged_.clear();
  }

  // What lies in a folder that this root's scan could not read is hidden, not gone.
  void dropVanished(std::size_t unreadableBefore) {
    const auto& unreadable = report.scan.unreadableFolders;
    std::vector<PathRange> hidden(
        unreadable.begin() + static_cast<std::ptrdiff_t>(unreadableBefore), unreadable.end());
    std::vector<std::string> vanished;
    for (const auto& [path, known] : known_) {
      const bool isHidden =
          std::any_of(hidden.begin(), hidden.end(),
                      [&path = path](const PathRange& folder) { return folder.contains(path); });
      if (!known.isThere && !isHidden) vanished.push_back(path);
    }
    forEachBatch(
        vanished, [this](const std::string& path) { return writer_.remove(path); }, report.removed);
  }

  // Does `write` for all paths, a batch in a transaction, and adds those of the written batches up.
  template <typename Write>
  void forEachBatch(const std::vector<std::string>& paths, Write write, std::uint64_t& written) {
    for (std::size_t start = 0; start < paths.size(); start += FILES_A_BATCH) {
      const auto first = paths.begin() + static_cast<std::ptrdiff_t>(start);
      const std::size_t count = std::min(FILES_A_BATCH, paths.size() - start);
      const bool isWritten = inTransaction(
          [&] { return std::all_of(first, first + static_cast<std::ptrdiff_t>(count), write); });
      if (isWritten) written += count;
    }
  }

  template <typename Write>
  bool inTransaction(Write write) {
    Transaction transaction(index_);
    const bool isWritten = transaction && write() && transaction.commit();
    report.isComplete = report.isComplete && isWritten;
    return isWritten;
  }

  const Connection& index_;
  const IndexingOptions& options_;
  IndexWriter writer_;
  std::optional<SentenceEmbedding> sentence_;
  std::unordered_map<std::string, KnownFile> known_;  // of the root at hand
  std::vector<std::string> unchanged_;
  std::vector<AnalysedFile> batch_;
  std::size_t passages_ = 0;  // in the batch
  std::chrono::steady_clock::time_point batchStart_ = std::chrono::steady_clock::now();
};

}  // namespace

IndexingReport indexFiles(const Connection& index, const std::vector<std::string>& roots,
                          const IndexingOptions& options) {
  Indexing indexing(index, options);
  for (const std::string& root : roots) indexing.run(root);
  return std::move(indexing.report);
}

}  // namespace norvast
