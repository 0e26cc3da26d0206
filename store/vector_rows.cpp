#include "store/vector_rows.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>
#include <span>

#include "store/statement.h"

namespace norvast {
namespace {

// False when there is no vector at all.
bool decode(std::span<const std::byte> blob, std::size_t mostNumbers, std::vector<float>& into) {
  if (blob.empty()) return false;
  into.resize(std::min(blob.size() / sizeof(float), mostNumbers));
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

}  // namespace

template <>
bool VectorRows<EmbeddingRow>::next(EmbeddingRow& row) {
  while (statement_.step()) {
    if (!decode(statement_.blob(1), mostNumbers_, row.vec)) continue;
    statement_.text(0, row.path);
    return true;
  }
  return false;
}

template <>
bool VectorRows<ChunkRow>::next(ChunkRow& row) {
  while (statement_.step()) {
    if (!decode(statement_.blob(3), mostNumbers_, row.vec)) continue;
    statement_.text(0, row.path);
    row.ord = statement_.integer(1);
    statement_.text(2, row.text);
    return true;
  }
  return false;
}

VectorRows<EmbeddingRow> allowlistedEmbeddings(const MCPStore& store, std::size_t mostNumbers) {
  return {store, "SELECT e.path, e.vec FROM embedding e JOIN mcp_exposure m ON m.path = e.path",
          mostNumbers};
}

VectorRows<EmbeddingRow> libraryEmbeddings(const MCPStore& store, std::size_t mostNumbers) {
  return {store, "SELECT path, vec FROM embedding", mostNumbers};
}

VectorRows<ChunkRow> allowlistedChunks(const MCPStore& store, std::size_t mostNumbers) {
  return {store,
          "SELECT c.path, c.ord, c.text, c.vec FROM chunk c JOIN mcp_exposure m ON m.path = c.path "
          "WHERE m.allow_content = 1",
          mostNumbers};
}

}  // namespace norvast
