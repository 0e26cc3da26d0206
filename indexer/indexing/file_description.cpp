#include "indexer/indexing/file_description.h"

#include <algorithm>

#include "indexer/decisions/decisions.h"
#include "indexer/indexing/failures.h"
#include "store/statement.h"

namespace norvast::indexer {
namespace {

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

std::optional<Nomination> nominationOf(const MCPStore& store, const std::string& path) {
  const auto rows = store.rows("SELECT allow_content FROM mcp_exposure WHERE path = ?", {path});
  if (rows.empty()) return std::nullopt;
  return rows[0][0] == "1" ? Nomination::content : Nomination::metadata;
}

void describeText(const MCPStore& store, FileDescription& file) {
  const auto analyses = store.rows(
      "SELECT method, title, summary, entities FROM analysis WHERE path = ?", {file.path});
  if (analyses.empty()) return;
  file.method = analyses[0][0];
  file.title = analyses[0][1];
  file.summary = analyses[0][2];
  file.entities = linesOf(analyses[0][3]);
  for (const auto& row :
       store.rows("SELECT heading, text FROM chunk WHERE path = ? ORDER BY ord", {file.path})) {
    file.passages.push_back({row[0], row[1]});
  }
}

}  // namespace

std::optional<FileDescription> describedFile(const MCPStore& store, const std::string& path) {
  Statement known(store.rdb, "SELECT grp, size, modified FROM file WHERE path = ?",
                  std::vector{path});
  if (!known.step()) return std::nullopt;
  FileDescription file;
  file.path = path;
  file.typeGroup = known.text(0);
  file.sizeBytes = static_cast<std::uint64_t>(known.integer(1));
  file.modified = known.integer(2);
  const auto decisions = readDecisions(store.rdb);
  if (decisions) file.rule = decisions->rules.holdingFor(path);
  file.nomination = nominationOf(store, path);
  const auto failures = failedFiles(store.rdb, path);
  if (failures && !failures->empty()) file.failure = failures->front().reason;
  describeText(store, file);
  return file;
}

}  // namespace norvast::indexer
