// Vector rows: the stored embeddings of files and passages, handed over one at a time.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "store/mcp_store.h"

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

// Each calls `visit` with every row in the order in which SQLite returns them; rows whose blob is
// empty or NULL are left out, other NULLs read as 0 or the empty text. The row is the visitor's to
// move from or to swap: it is filled anew for the next call, into the memory that it then holds.
// A statement that fails ends the rows.

// Of the nominated files.
void allowlistedEmbeddings(const MCPStore& store, const std::function<void(EmbeddingRow&)>& visit);

// Of every indexed file.
void libraryEmbeddings(const MCPStore& store, const std::function<void(EmbeddingRow&)>& visit);

// Of the nominated files whose content may be read.
void allowlistedChunks(const MCPStore& store, const std::function<void(ChunkRow&)>& visit);

}  // namespace norvast
