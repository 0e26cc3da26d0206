// Index status: what is in the index, where it lies and which switches are set.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "document/lock_state.h"
#include "store/mcp_store.h"

namespace norvast::indexer {

struct IndexStatus {
  std::string path;
  std::uint64_t sizeBytes = 0;  // with its write-ahead log
  std::uint64_t files = 0;
  std::uint64_t withSummary = 0;
  std::uint64_t withoutText = 0;
  std::uint64_t passages = 0;
  std::optional<std::string> embeddingScheme;  // nothing before the first vector
  std::uint64_t roots = 0;
  std::uint64_t rules = 0;
  // Files by the kind of the rule that holds for them.
  std::uint64_t underContent = 0;
  std::uint64_t underMetadata = 0;
  std::uint64_t underWithheld = 0;
  std::uint64_t underNone = 0;
  std::uint64_t nominated = 0;
  std::uint64_t nominatedWithContent = 0;
  std::uint64_t auditEvents = 0;
  std::optional<std::int64_t> watchingProcess;
  std::optional<LockState> decoderLock;  // nothing when no decoder can run here
  bool isAccessOn = true;
  bool isLibraryOn = false;
};

// Nothing when the index is damaged.
std::optional<IndexStatus> indexStatus(const MCPStore& store);

}  // namespace norvast::indexer
