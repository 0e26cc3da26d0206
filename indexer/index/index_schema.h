// Index schema: the tables of the index, and how those of an earlier version become these.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "store/connection.h"

namespace norvast::indexer {

// The application id marks the database as made by this program ("Norv" in ASCII). The version is
// that of its tables, and is raised with every change of them.
inline constexpr std::uint32_t INDEX_APPLICATION_ID = 0x4E6F7276;
inline constexpr std::uint32_t INDEX_VERSION = 5;

// The tables whose rows describe the file at the path in their column `path`.
inline constexpr std::array FILE_TABLES = {"file",      "mcp_exposure", "analysis",
                                           "embedding", "chunk",        "failure"};

// Stored as the nanoseconds of a file's modification time, it makes the next run read that file
// again: no file has such a time.
inline constexpr std::int64_t READ_ANEW = -1;

// Brings all tables to their present layout in one transaction. Several programs may do so at once.
// Decisions, the audit trail and the list of files are kept. What was made of the files' texts is
// dropped where the layout of its table changed; the next run makes it again. Returns nothing when
// that is done, else the reason why the index cannot be written, which is then as it was before.
std::optional<std::string> obstacleToPresentTables(const Connection& index);

// Returns true when there is a view in the index, which has none as this program makes it. One in
// the place of a table may have no end.
bool hasViews(const Connection& index);

// True if all tables have the layout of this version, or if the index is of an earlier version.
// False if they have not, or if that cannot be read.
bool hasItsTables(const Connection& index);

}  // namespace norvast::indexer
