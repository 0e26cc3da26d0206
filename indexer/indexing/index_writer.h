// Index writer: the rows of one file, replaced or removed whole.
#pragma once

#include <cstdint>
#include <string>

#include "indexer/indexing/file_analysis.h"
#include "indexer/indexing/file_scan.h"
#include "store/connection.h"
#include "store/statement.h"

namespace norvast::indexer {

// Prepared once for a run of files. Each operation is false when the index could not be written;
// the caller's transaction then must not be committed.
class IndexWriter {
 public:
  explicit IndexWriter(const Connection& index);

  // Replaces all rows that describe the file by new ones. Its exposure stays.
  bool replace(const ScannedFile& file, const FileAnalysis& analysis);

  // Removes the file's rows from every table, its exposure too.
  bool remove(const std::string& path);

 private:
  bool clearDescription(const std::string& path);
  bool insertFailure(const std::string& path, ReadFailure failure);
  bool insertChunks(const std::string& path, const FileAnalysis& analysis);

  Statement insertFile_;
  Statement insertAnalysis_;
  Statement insertEmbedding_;
  Statement insertChunk_;
  Statement insertFailure_;
  Statement deleteAnalysis_;
  Statement deleteEmbedding_;
  Statement deleteChunks_;
  Statement deleteFailure_;
  Statement deleteFile_;
  Statement deleteExposure_;
};

}  // namespace norvast::indexer
