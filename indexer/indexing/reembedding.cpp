#include "indexer/indexing/reembedding.h"

#include <chrono>
#include <span>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "indexer/analysis/embedded_text.h"
#include "store/settings.h"
#include "store/statement.h"
#include "store/transaction.h"

namespace norvast::indexer {
namespace {

// The scheme to which an unfinished work leads, and the last path that it has done.
constexpr const char* TARGET_SETTING = "embedding_target";
constexpr const char* REACHED_SETTING = "embedding_reached";

// What one transaction does at the most: some tens of milliseconds of write lock, but for a file
// with more passages. Between two, others may write.
constexpr std::int64_t FILES_A_BATCH = 100;
constexpr std::uint64_t PASSAGES_A_BATCH = 500;
constexpr int PAUSE_DIVISOR = 2;  // of the time that the last one took

using Clock = std::chrono::steady_clock;

struct StoredFile {
  std::string path;
  std::string name;
};

class EmbeddingAgain {
 public:
  EmbeddingAgain(const Connection& index, const SentenceEmbedding& sentence)
      : index_(index),
        sentence_(sentence),
        files_(index, "SELECT path, name FROM file WHERE path > ? ORDER BY path LIMIT ?"),
        summary_(index, "SELECT summary, title FROM analysis WHERE path = ?"),
        passages_(index, "SELECT ord, text, heading FROM chunk WHERE path = ? ORDER BY ord"),
        updateFile_(index, "UPDATE embedding SET vec = ? WHERE path = ?"),
        updatePassage_(index, "UPDATE chunk SET vec = ? WHERE path = ? AND ord = ?") {}

  bool isDone() const {
    return setting(index_, EMBEDDING_SCHEME_SETTING) == std::optional(sentence_.scheme());
  }

  // True when the batch was kept. `step` is called for each file.
  template <typename Step>
  bool embedBatch(Step step) {
    Transaction transaction(index_);
    if (!transaction) return false;
    if (isDone()) return true;
    const std::string scheme = sentence_.scheme();
    std::string reached = setting(index_, TARGET_SETTING) == std::optional(scheme)
                              ? setting(index_, REACHED_SETTING).value_or("")
                              : std::string();
    const std::vector<StoredFile> files = filesAfter(reached);
    if (!areAllRead_) return false;
    std::uint64_t passages = 0;
    for (const StoredFile& file : files) {
      if (passages >= PASSAGES_A_BATCH) break;
      if (!embedFile(file, passages)) return false;
      reached = file.path;
      step();
    }
    const bool isKept = files.empty() ? finish(scheme)
                                      : storeSetting(index_, TARGET_SETTING, scheme) &&
                                            storeSetting(index_, REACHED_SETTING, reached);
    return isKept && transaction.commit();
  }

 private:
  std::vector<StoredFile> filesAfter(const std::string& path) {
    files_.bind(1, path);
    files_.bind(2, FILES_A_BATCH);
    std::vector<StoredFile> files;
    while (files_.step()) files.push_back({files_.text(0), files_.text(1)});
    areAllRead_ = files_.isDone();
    files_.reset();
    return files;
  }

  bool finish(const std::string& scheme) {
    return storeSetting(index_, EMBEDDING_SCHEME_SETTING, scheme) &&
           Statement(index_, "DELETE FROM setting WHERE name IN (?, ?)",
                     std::vector<std::string>{TARGET_SETTING, REACHED_SETTING})
               .run();
  }

  bool embedFile(const StoredFile& file, std::uint64_t& passages) {
    summary_.bind(1, file.path);
    const bool hasSummary = summary_.step();
    const std::string summary = hasSummary ? summary_.text(0) : "";
    const std::string title = hasSummary ? summary_.text(1) : "";
    summary_.reset();

    std::vector<std::string> leading;
    bool isWritten = true;
    passages_.bind(1, file.path);
    while (isWritten && passages_.step()) {
      std::string text = passages_.text(1);
      updatePassage_.bind(3, passages_.integer(0));
      isWritten = update(updatePassage_, file.path,
                         embeddedPassage(file.name, title, passages_.text(2), text));
      if (leading.size() < LEADING_PASSAGES) leading.push_back(std::move(text));
      ++passages;
    }
    isWritten = isWritten && passages_.isDone();
    passages_.reset();
    const std::vector<std::string_view> views(leading.begin(), leading.end());
    return isWritten && update(updateFile_, file.path, embeddedFile(file.name, summary, views));
  }

  // A text without a vector had none before, and so no row.
  bool update(Statement& statement, const std::string& path, const std::string& text) {
    const auto vector = sentence_.vector(text);
    if (!vector) return true;
    statement.bind(1, std::as_bytes(std::span(*vector)));
    statement.bind(2, path);
    const bool isWritten = statement.run();
    statement.reset();
    return isWritten;
  }

  const Connection& index_;
  const SentenceEmbedding& sentence_;
  bool areAllRead_ = true;  // no failure hid a file
  Statement files_;
  Statement summary_;
  Statement passages_;
  Statement updateFile_;
  Statement updatePassage_;
};

std::uint64_t countFiles(const Connection& index) {
  Statement statement(index, "SELECT COUNT(*) FROM file");
  return statement.step() ? static_cast<std::uint64_t>(statement.integer(0)) : 0;
}

}  // namespace

std::uint64_t countToEmbedAgain(const Connection& index, const SentenceEmbedding& sentence) {
  return EmbeddingAgain(index, sentence).isDone() ? 0 : countFiles(index);
}

Reembedding embedAgain(const Connection& index, const SentenceEmbedding& sentence,
                       IndexingProgress* progress) {
  Reembedding done;
  EmbeddingAgain work(index, sentence);
  if (work.isDone()) return done;
  const FileWork each{{FileKind::Way::text, {}},
                      0};  // all cost the same: the index has their texts
  if (progress != nullptr) progress->begin(std::vector(countFiles(index), each));
  while (!work.isDone()) {
    const auto began = Clock::now();
    const auto step = [&] {
      ++done.files;
      if (progress != nullptr) progress->finish(each);
    };
    if (!work.embedBatch(step)) {
      done.obstacle = index.lastFailure();
      return done;
    }
    if (!work.isDone()) std::this_thread::sleep_for((Clock::now() - began) / PAUSE_DIVISOR);
  }
  return done;
}

}  // namespace norvast::indexer
