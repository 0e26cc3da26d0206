// Tool context: what a tool works with besides its arguments.
#pragma once

#include <optional>
#include <string>

#include "embedding/sentence_embedding.h"
#include "store/mcp_store.h"

namespace norvast {

// For one call; both outlive it.
struct ToolContext {
  const MCPStore& store;
  const std::optional<SentenceEmbedding>& sentence;  // nothing: no query has a vector

  // The client's text for the vectors in the store. Nothing when it has no vector.
  std::optional<SentenceQuery> query(const std::string& text) const;
};

}  // namespace norvast
