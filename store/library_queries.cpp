#include "store/library_queries.h"

#include <algorithm>
#include <utility>

#include "store/file_record.h"
#include "store/like_pattern.h"

namespace norvast {

Json::Array searchLibrary(const MCPStore& store, const std::string& query, std::int64_t limit) {
  const std::string sql =
      R"(SELECT f.path,f.name,f.ext,f.grp,f.size,f.modified,a.summary FROM file f
LEFT JOIN analysis a ON a.path = f.path
WHERE f.name LIKE ? ESCAPE '\' OR a.summary LIKE ? ESCAPE '\' OR a.entities LIKE ? ESCAPE '\'
ORDER BY (CASE WHEN f.name LIKE ? ESCAPE '\' THEN 0 ELSE 1 END), f.modified DESC
LIMIT )" +
      std::to_string(std::clamp<std::int64_t>(limit, 1, 500));

  Json::Array records;
  for (MCPStore::Row& row : store.rows(sql, MCPStore::Binds(4, likeContaining(query)))) {
    Json::Object record = fileDict(row);
    if (std::string& text = row[6]; !text.empty()) record["summary"] = std::move(text);
    records.emplace_back(std::move(record));
  }
  return records;
}

std::optional<std::string> librarySummary(const MCPStore& store, const std::string& path) {
  auto found = store.rows("SELECT summary FROM analysis WHERE path=? LIMIT 1", {path});
  if (found.empty()) return std::nullopt;
  return std::move(found.front().front());
}

}  // namespace norvast
