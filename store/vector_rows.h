// Vector rows: the stored embeddings of files and passages, handed over one at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "store/mcp_store.h"
#include "store/statement.h"

namespace norvast {

// One file's sentence vector. Stored as IEEE 754 binary32 values, little-endian, 4 bytes each and
// nothing else; 1 to 3 bytes too many are ignored. Any length, also none.
struct EmbeddingRow {
  std::string path;
  std::vector<float> vec;
};

// One passage of a file, and its vector as above.
struct ChunkRow {
  std::string path;
  std::int64_t ord = 0;  // index of the passage within its file
  std::string text;
  std::vector<float> vec;
};

// The rows of one query, in the order in which SQLite returns them. The statement lives as long as
// this does; it must be gone before the audit row is written, since an open read can keep our own
// write waiting.
template <typename Row>
class VectorRows {
 public:
  VectorRows(const MCPStore& store, const char* sql, std::size_t mostNumbers)
      : statement_(store.rdb, sql), mostNumbers_(mostNumbers) {}

  // Puts the next row into `row`, reusing the memory that it has. Rows whose blob is empty or NULL
  // are left out; other NULLs read as 0 or the empty text. False at the end and on a failure.
  bool next(Row& row);

 private:
  Statement statement_;
  std::size_t mostNumbers_;
};

// Each takes at most that many numbers of a vector, from the first on.

// Of the nominated files.
VectorRows<EmbeddingRow> allowlistedEmbeddings(const MCPStore& store, std::size_t mostNumbers);

// Of every indexed file.
VectorRows<EmbeddingRow> libraryEmbeddings(const MCPStore& store, std::size_t mostNumbers);

// Of the nominated files whose content may be read.
VectorRows<ChunkRow> allowlistedChunks(const MCPStore& store, std::size_t mostNumbers);

}  // namespace norvast
