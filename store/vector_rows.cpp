#include "store/vector_rows.h"

#include <bit>
#include <cstddef>
#include <cstring>
#include <span>

#include "store/statement.h"

namespace norvast {
namespace {

// False when there is no vector at all.
bool decode(std::span<const std::byte> blob, std::vector<float>& into) {
  if (blob.empty()) return false;
  into.resize(blob.size() / sizeof(float));
  if constexpr (std::endian::native == std::endian::little) {
    if (!into.empty()) std::memcpy(into.data(), blob.data(), into.size() * sizeof(float));
  } else {
    for (float& value : into) {
      std::uint32_t bits = 0;
      for (std::size_t at = 0; at < sizeof bits; ++at) {
        bits |= std::to_integer<std::uint32_t>(blob[at]) << (8 * at);
      }
      value = std::bit_cast<float>(bits);
      blob = blob.subspan(sizeof bits);
    }
  }
  return true;
}

void embeddings(const MCPStore& store, const char* sql,
                const std::function<void(EmbeddingRow&)>& visit) {
  Statement statement(store.rdb, sql);
  EmbeddingRow row;
  while (statement.step()) {
    if (!decode(statement.blob(1), row.vec)) continue;
    statement.text(0, row.path);
    visit(row);
  }
}

}  // namespace

void allowlistedEmbeddings(const MCPStore& store, const std::function<void(EmbeddingRow&)>& visit) {
  embeddings(store, "SELECT e.path, e.vec FROM embedding e JOIN mcp_exposure m ON m.path = e.path",
             visit);
}

void libraryEmbeddings(const MCPStore& store, const std::function<void(EmbeddingRow&)>& visit) {
  embeddings(store, "SELECT path, vec FROM embedding", visit);
}

void allowlistedChunks(const MCPStore& store, const std::function<void(ChunkRow&)>& visit) {
  Statement statement(store.rdb,
                      "SELECT c.path, c.ord, c.text, c.vec FROM chunk c JOIN mcp_exposure m ON "
                      "m.path = c.path WHERE m.allow_content = 1");
  ChunkRow row;
  while (statement.step()) {
    if (!decode(statement.blob(3), row.vec)) continue;
    statement.text(0, row.path);
    row.ord = statement.integer(1);
    statement.text(2, row.text);
    visit(row);
  }
}

}  // namespace norvast
