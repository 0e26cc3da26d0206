// Process-wide values: what start-up settles once, in this order, and nothing changes afterwards.
#pragma once

#include <optional>

#include "embedding/sentence_embedding.h"
#include "store/mcp_store.h"
#include "tools/catalogue.h"

namespace norvast {

// Revision of the Model Context Protocol that is spoken.
inline constexpr const char* PROTOCOL_VERSION = "2024-11-05";

struct ProcessValues {
  // Nothing when there is no index database; one that is created later is seen after a restart.
  std::optional<MCPStore> store = MCPStore::openToServe();
  std::optional<SentenceEmbedding> sentence = SentenceEmbedding::english();
  Catalogue catalogue = buildCatalogue();
};

}  // namespace norvast
