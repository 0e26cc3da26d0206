// Batch writing: rows of many files, in transactions that are over in moments.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "indexer/decisions/decisions.h"
#include "indexer/decisions/exposure.h"
#include "indexer/decisions/restricted_files.h"
#include "indexer/indexing/file_analysis.h"
#include "indexer/indexing/file_scan.h"
#include "indexer/indexing/index_writer.h"
#include "store/connection.h"

namespace norvast::indexer {

// What one transaction writes at the most: some milliseconds of write lock.
inline constexpr std::size_t FILES_A_BATCH = 500;

struct AnalysedFile {
  ScannedFile file;
  FileAnalysis analysis;
};

class BatchWriting {
 public:
  explicit BatchWriting(const Connection& index);

  // Each is false when the index could not be written to the end; `obstacle` then says why.

  // Replaces the rows of the files in one transaction, and lets clients see them as the rules say
  // that hold in it. Files that are no longer to be indexed are passed over; the others are added
  // to `written`.
  bool replace(const std::vector<AnalysedFile>& batch, std::uint64_t& written);

  // Removes all rows of the files, a batch in a transaction, and adds them to `removed`.
  bool remove(const std::vector<std::string>& paths, std::uint64_t& removed);

  // After the decisions were changed through the same connection.
  void forgetDecisions() { current_.forget(); }

  std::optional<std::string> obstacle;

  // Of the vectors that `replace` writes; those in the index must be of the same. Empty where there
  // are none.
  std::string scheme;

 private:
  template <typename Write>
  bool inTransaction(Write write);

  const Connection& index_;
  IndexWriter writer_;
  ExposureWriter exposure_;
  RestrictedFiles restricted_;
  CurrentDecisions current_;
};

}  // namespace norvast::indexer
