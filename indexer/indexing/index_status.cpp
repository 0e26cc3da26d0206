#include "indexer/indexing/index_status.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <system_error>
#include <vector>

#include "access/switch_files.h"
#include "content/isolated_extraction.h"
#include "indexer/decisions/decisions.h"
#include "indexer/decisions/rule_counts.h"
#include "indexer/index/index_schema.h"
#include "indexer/index/watch_lock.h"
#include "indexer/indexing/territory.h"
#include "store/settings.h"
#include "store/statement.h"

namespace norvast::indexer {
namespace {

// As long as reading it takes no longer than a blink.
constexpr std::uint64_t MOST_CHECKED_BYTES = 64'000'000;

constexpr std::int64_t FIRST_VERSION_WITH_RULES = 2;

std::uint64_t fileBytes(const std::string& path) {
  std::error_code missing;
  const std::uintmax_t size = std::filesystem::file_size(path, missing);
  return missing ? 0 : size;
}

// Counts rows until one cannot be read.
class Counting {
 public:
  explicit Counting(const Connection& index) : index_(index) {}

  std::uint64_t operator()(const std::string& what) {
    Statement statement(index_, "SELECT COUNT(*) FROM " + what);
    const bool isRead = statement.step();
    isWhole_ = isWhole_ && isRead;
    return isRead ? static_cast<std::uint64_t>(statement.integer(0)) : 0;
  }

  bool isWhole() const { return isWhole_; }

 private:
  const Connection& index_;
  bool isWhole_ = true;
};

// A small index is read whole; of a large one what is counted.
bool isSound(const MCPStore& store, const std::string& path) {
  if (!hasItsTables(store.rdb)) return false;
  if (fileBytes(path) > MOST_CHECKED_BYTES) return true;
  Statement check(store.rdb, "PRAGMA quick_check(1)");
  return check.step() && check.text(0) == "ok";
}

std::uint64_t filesWith(const std::vector<RuleCount>& counts, std::optional<RuleKind> kind) {
  std::uint64_t files = 0;
  for (const RuleCount& row : counts) {
    const bool isSame = row.rule ? kind == row.rule->kind : !kind;
    if (isSame) files += row.files;
  }
  return files;
}

void countByKind(const std::vector<RuleCount>& counts, IndexStatus& status) {
  status.rules = counts.size() - 1;
  status.underContent = filesWith(counts, RuleKind::content);
  status.underMetadata = filesWith(counts, RuleKind::metadata);
  status.underWithheld = filesWith(counts, RuleKind::withheld);
  status.underNone = filesWith(counts, std::nullopt);
}

// Of the first version, which had none.
std::optional<Decisions> decisionsOf(const MCPStore& store) {
  if (store.scalar("PRAGMA user_version") < FIRST_VERSION_WITH_RULES) return Decisions();
  return readDecisions(store.rdb);
}

}  // namespace

std::optional<IndexStatus> indexStatus(const MCPStore& store) {
  IndexStatus status;
  status.path = indexDatabasePath().value_or("");
  const auto decisions = decisionsOf(store);
  const auto counts = decisions ? countByRule(store.rdb, decisions->rules) : std::nullopt;
  if (!isSound(store, status.path) || !counts) return std::nullopt;
  status.roots = decisions->roots.size();
  countByKind(*counts, status);

  Counting count(store.rdb);
  status.sizeBytes = fileBytes(status.path) + fileBytes(status.path + "-wal");
  status.files = count("file");
  status.withSummary = count("analysis");
  status.withoutText = status.files - std::min(status.files, status.withSummary);
  status.passages = count("chunk");
  status.nominated = count("mcp_exposure");
  status.nominatedWithContent = count("mcp_exposure WHERE allow_content = 1");
  status.auditEvents = count("audit_event");
  if (!count.isWhole()) return std::nullopt;

  status.embeddingScheme = setting(store.rdb, EMBEDDING_SCHEME_SETTING);
  const auto folder = indexFolder();
  status.watchingProcess = folder ? watchingProcess(*folder) : std::nullopt;
  status.decoderLock = isolationLock();
  status.isAccessOn = !isAccessOff();
  status.isLibraryOn = isLibraryOn();
  return status;
}

}  // namespace norvast::indexer
