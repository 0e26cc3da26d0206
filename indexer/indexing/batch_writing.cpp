#include "indexer/indexing/batch_writing.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "indexer/decisions/exclusions.h"
#include "store/settings.h"
#include "store/transaction.h"

namespace norvast::indexer {
namespace {

// Of the time that a batch took, the part for which the next one waits when nothing else is to be
// done meanwhile. A server that has a row to write looks for a free moment some thirty times before
// it gives up.
constexpr int PAUSE_DIVISOR = 2;

using Clock = std::chrono::steady_clock;

}  // namespace

BatchWriting::BatchWriting(const Connection& index)
    : index_(index), writer_(index), exposure_(index), restricted_(index), current_(index) {}

bool BatchWriting::replace(const std::vector<AnalysedFile>& batch, std::uint64_t& written) {
  std::uint64_t count = 0;
  bool isOfScheme = true;
  const bool isWritten = inTransaction([&](const Decisions& decisions) {
    isOfScheme =
        scheme.empty() || setting(index_, EMBEDDING_SCHEME_SETTING) == std::optional(scheme);
    return isOfScheme && std::all_of(batch.begin(), batch.end(), [&](const AnalysedFile& analysed) {
             const std::string& path = analysed.file.path;
             if (!decisions.isIndexed(path) || isExcluded(decisions, path)) return true;
             ++count;
             return writer_.replace(analysed.file, analysed.analysis) &&
                    exposure_.write(path, nominationBy(decisions.rules, path)) &&
                    restricted_.noteSeen(decisions.rules, path);
           });
  });
  if (!isOfScheme) obstacle = "another run has made its vectors anew with another model";
  if (isWritten) written += count;
  return isWritten;
}

bool BatchWriting::remove(const std::vector<std::string>& paths, std::uint64_t& removed) {
  for (std::size_t start = 0; start < paths.size(); start += FILES_A_BATCH) {
    const auto began = Clock::now();
    const auto first = paths.begin() + static_cast<std::ptrdiff_t>(start);
    const std::size_t count = std::min(FILES_A_BATCH, paths.size() - start);
    const bool isWritten = inTransaction([&](const Decisions& /*decisions*/) {
      return std::all_of(first, first + static_cast<std::ptrdiff_t>(count),
                         [this](const std::string& path) { return writer_.remove(path); });
    });
    if (!isWritten) return false;
    removed += count;
    if (start + count < paths.size()) {
      std::this_thread::sleep_for((Clock::now() - began) / PAUSE_DIVISOR);
    }
  }
  return true;
}

template <typename Write>
bool BatchWriting::inTransaction(Write write) {
  Transaction transaction(index_);
  const Decisions* decisions = transaction ? current_.get() : nullptr;
  if (decisions != nullptr && write(*decisions) && transaction.commit()) return true;
  obstacle = index_.lastFailure();
  return false;
}

}  // namespace norvast::indexer
