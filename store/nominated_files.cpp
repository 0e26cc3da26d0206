#include "store/nominated_files.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "store/file_record.h"
#include "store/like_pattern.h"
#include "store/statement.h"

namespace norvast {
namespace {

Json::Array fileRecords(const MCPStore& store, const std::string& sql,
                        const MCPStore::Binds& binds) {
  Json::Array records;
  for (const MCPStore::Row& row : store.rows(sql, binds)) records.emplace_back(fileDict(row));
  return records;
}

// A number spliced into SQL, within its bounds and so without a sign.
std::string bounded(std::int64_t number, std::int64_t least, std::int64_t most) {
  return std::to_string(std::clamp(number, least, most));
}

}  // namespace

std::int64_t countNominations(const MCPStore& store) {
  return store.scalar("SELECT COUNT(*) FROM mcp_exposure");
}

bool isNominated(const MCPStore& store, const std::string& path) {
  return store.scalar("SELECT COUNT(*) FROM mcp_exposure WHERE path = ?", {path}) > 0;
}

bool isContentAllowed(const MCPStore& store, const std::string& path) {
  return store.scalar("SELECT COUNT(*) FROM mcp_exposure WHERE path = ? AND allow_content = 1",
                      {path}) > 0;
}

Json::Array listFiles(const MCPStore& store, std::int64_t offset, std::int64_t limit) {
  return fileRecords(store,
                     R"(SELECT f.path,f.name,f.ext,f.grp,f.size,f.modified FROM file f
JOIN mcp_exposure m ON m.path = f.path
ORDER BY f.path LIMIT )" +
                         bounded(limit, 1, 1000) + " OFFSET " +
                         std::to_string(std::max<std::int64_t>(offset, 0)),
                     {});
}

Json::Array searchFiles(const MCPStore& store, const std::string& query, std::int64_t limit) {
  return fileRecords(store,
                     R"(SELECT f.path,f.name,f.ext,f.grp,f.size,f.modified FROM file f
JOIN mcp_exposure m ON m.path = f.path
WHERE f.name LIKE ? ESCAPE '\'
ORDER BY f.modified DESC LIMIT )" +
                         bounded(limit, 1, 500),
                     {likeContaining(query)});
}

Json::Array packageMembers(const MCPStore& store, const std::string& path, std::int64_t limit) {
  return fileRecords(store,
                     R"(SELECT f.path,f.name,f.ext,f.grp,f.size,f.modified FROM file f
JOIN mcp_exposure m ON m.path = f.path
WHERE f.path LIKE ? ESCAPE '\'
ORDER BY f.path LIMIT )" +
                         bounded(limit, 1, 200),
                     {likeBelow(path)});
}

std::optional<Json::Object> metadata(const MCPStore& store, const std::string& path) {
  Statement statement(
      store.rdb,
      R"(SELECT f.path,f.name,f.ext,f.grp,f.size,f.modified,a.summary,a.method FROM file f
JOIN mcp_exposure m ON m.path = f.path
LEFT JOIN analysis a ON a.path = f.path
WHERE f.path = ? LIMIT 1)",
      std::vector{path});
  if (!statement.step()) return std::nullopt;

  // Unlike in the listings, size and modified are read as integers: NULL is 0.
  Json::Object record =
      fileDict({statement.text(0), statement.text(1), statement.text(2), statement.text(3),
                std::to_string(statement.integer(4)), std::to_string(statement.integer(5))});
  if (std::string text = statement.text(6); !text.empty()) record["summary"] = std::move(text);
  if (std::string method = statement.text(7); !method.empty()) {
    record["extraction_method"] = std::move(method);
  }
  return record;
}

std::optional<std::string> summary(const MCPStore& store, const std::string& path) {
  Statement statement(store.rdb,
                      "SELECT a.summary FROM analysis a JOIN mcp_exposure m ON m.path=a.path WHERE "
                      "a.path=? LIMIT 1",
                      std::vector{path});
  if (!statement.step()) return std::nullopt;
  return statement.text(0);
}

}  // namespace norvast
