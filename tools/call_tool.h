// Tool calls: the checks that come before every tool.
#pragma once

#include <optional>
#include <string>

#include "embedding/sentence_embedding.h"
#include "json/json.h"
#include "store/mcp_store.h"
#include "tools/arguments.h"

namespace norvast {

// Executes one call and answers with its tool result, which for a call refused here (AI access
// off, no index, unknown tool) is an error that leaves no audit row. Names match whole and
// case-sensitively, whether or not the catalogue offers the tool at the moment.
Json callTool(const std::string& name, const Arguments& arguments,
              const std::optional<MCPStore>& store,
              const std::optional<SentenceEmbedding>& sentence);

}  // namespace norvast
