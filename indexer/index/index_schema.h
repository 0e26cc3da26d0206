// Index schema: the tables of the index, and how those of an earlier version become these.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "store/connection.h"

namespace norvast::indexer {

// Marks the database as made by this program ("Norv" in ASCII), and the version of its tables: to
// be raised with every change of them.
inline constexpr std::uint32_t INDEX_APPLICATION_ID = 0x4E6F7276;
inline constexpr std::uint32_t INDEX_VERSION = 4;

// The tables that describe a file by its path.
inline constexpr std::array FILE_TABLES = {"file",      "mcp_exposure", "analysis",
                                           "embedding", "chunk",        "failure"};

// Stands for the nanoseconds in the modification time of a file that is to be read anew, whatever
// its times: no file has them.
inline constexpr std::int64_t READ_ANEW = -1;

// Gives the index all tables in their present layout, in one transaction; several programs may do
// so at once. What users decided, what clients did and which files are known is kept; what was made
// of files' texts goes where its table has changed, and is made anew when they are indexed next.
// Nothing when that is done, else why the index cannot be written; it is then as before.
std::optional<std::string> obstacleToPresentTables(const Connection& index);

// Returns true when there is a view in the index, which has none as this program makes it. One in
// the place of a table may have no end.
bool hasViews(const Connection& index);

// Whether all tables are there as this version makes them, or it is an earlier version's index.
// False when that cannot be read.
bool hasItsTables(const Connection& index);

}  // namespace norvast::indexer
