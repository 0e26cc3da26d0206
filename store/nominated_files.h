// Nominated files: the queries that can only see what the user has nominated.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "json/json.h"
#include "store/mcp_store.h"

namespace norvast {

// Nomination rows, also those whose file has no record.
std::int64_t countNominations(const MCPStore& store);

// Whether that very path (no normalisation) is nominated, and with its content readable.
bool isNominated(const MCPStore& store, const std::string& path);
bool isContentAllowed(const MCPStore& store, const std::string& path);

// File records by path in byte order, from the `offset`-th on (a negative one counts as 0), at
// most `limit` of them, which is brought into 1..1000.
Json::Array listFiles(const MCPStore& store, std::int64_t offset, std::int64_t limit);

// File records whose name contains `query`, newest first; `limit` is brought into 1..500. ASCII
// letters match without regard to case.
Json::Array searchFiles(const MCPStore& store, const std::string& query, std::int64_t limit);

// File records at any depth below the folder `path`, which has no trailing solidus, by path;
// `limit` is brought into 1..200. ASCII letters match without regard to case.
Json::Array packageMembers(const MCPStore& store, const std::string& path, std::int64_t limit);

// The file record of a nominated path, always with "size_bytes" and "modified", and with "summary"
// and "extraction_method" when its analysis has them. Nothing when it is not nominated or has no
// record.
std::optional<Json::Object> metadata(const MCPStore& store, const std::string& path);

// The summary of a nominated path, empty when its analysis has a NULL one. Nothing when it is not
// nominated or has no analysis.
std::optional<std::string> summary(const MCPStore& store, const std::string& path);

}  // namespace norvast
