// File description: what the index holds of one file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "document/read_failure.h"
#include "indexer/decisions/exposure.h"
#include "indexer/decisions/rules.h"
#include "store/mcp_store.h"

namespace norvast::indexer {

struct FileDescription {
  struct Passage {
    std::string heading;
    std::string text;
  };

  std::string path;
  std::string typeGroup;
  std::uint64_t sizeBytes = 0;
  std::int64_t modified = 0;             // seconds since 1970-01-01 00:00:00 UTC
  std::optional<Rule> rule;              // that holds for it
  std::optional<Nomination> nomination;  // nothing: AI clients do not see it
  std::optional<ReadFailure> failure;    // why there is no text
  // Of its text; empty where there is none.
  std::string method;
  std::string title;
  std::string summary;
  std::vector<std::string> entities;
  std::vector<Passage> passages;
};

// Nothing for a path that is not indexed.
std::optional<FileDescription> describedFile(const MCPStore& store, const std::string& path);

}  // namespace norvast::indexer
