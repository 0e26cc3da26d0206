#include "companion/index_status.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <system_error>
#include <vector>

#include "access/switch_files.h"
#include "companion/decisions.h"
#include "companion/failures.h"
#include "companion/index_schema.h"
#include "companion/rules_view.h"
#include "companion/terminal.h"
#include "companion/territory.h"
#include "companion/watch_lock.h"
#include "store/settings.h"
#include "store/statement.h"

namespace norvast {
namespace {

// As long as reading it takes no longer than a blink.
constexpr std::uint64_t MOST_CHECKED_BYTES = 64'000'000;

constexpr std::int64_t FIRST_VERSION_WITH_RULES = 2;

std::uint64_t fileBytes(const std::string& path) {
  std::error_code missing;
  const std::uintmax_t size = std::filesystem::file_size(path, missing);
  return missing ? 0 : size;
}

std::string megabytes(std::uint64_t bytes) {
  const std::uint64_t tenths = (bytes * 10 + 500'000) / 1'000'000;
  return grouped(tenths / 10) + "." + std::to_string(tenths % 10) + " MB";
}

std::string row(const std::string& name, const std::string& value) {
  return name + std::string(name.size() < 22 ? 22 - name.size() : 1, ' ') + value + "\n";
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

std::string decisionRows(const Decisions& decisions, const std::vector<RuleCount>& counts) {
  return row("roots", grouped(decisions.roots.size())) + row("rules", grouped(counts.size() - 1)) +
         row("  content", grouped(filesWith(counts, RuleKind::content))) +
         row("  metadata", grouped(filesWith(counts, RuleKind::metadata))) +
         row("  withheld", grouped(filesWith(counts, RuleKind::withheld))) +
         row("  no rule", grouped(filesWith(counts, std::nullopt)));
}

std::string watchRow() {
  const auto folder = indexFolder();
  const auto process = folder ? watchingProcess(*folder) : std::nullopt;
  return process ? "by process " + *process : "no";
}

// Of the first version, which had none.
std::optional<Decisions> decisionsOf(const MCPStore& store) {
  if (store.scalar("PRAGMA user_version") < FIRST_VERSION_WITH_RULES) return Decisions();
  return readDecisions(store.rdb);
}

}  // namespace

std::optional<std::string> statusText(const MCPStore& store) {
  const std::string path = indexDatabasePath().value_or("");
  Counting count(store.rdb);
  const auto decisions = decisionsOf(store);
  const auto counts = decisions ? countByRule(store.rdb, decisions->rules) : std::nullopt;
  if (!isSound(store, path) || !counts) return std::nullopt;
  const std::uint64_t files = count("file");
  const std::uint64_t withText = count("analysis");
  std::string text =
      row("index", path) + row("size", megabytes(fileBytes(path) + fileBytes(path + "-wal"))) +
      row("files", grouped(files)) + row("  with a summary", grouped(withText)) +
      row("  without text", grouped(files - std::min(files, withText))) +
      row("  passages", grouped(count("chunk"))) +
      row("  embedded by", setting(store.rdb, EMBEDDING_SCHEME_SETTING).value_or("nothing yet")) +
      decisionRows(*decisions, *counts) + row("nominated", grouped(count("mcp_exposure"))) +
      row("  with their content", grouped(count("mcp_exposure WHERE allow_content = 1"))) +
      row("audit events", grouped(count("audit_event"))) + row("watched", watchRow()) +
      row("AI access", isAccessOff() ? coloured("off", Colour::yellow) : "on") +
      row("whole library", isLibraryOn() ? coloured("on", Colour::yellow) : "off");
  if (!count.isWhole()) return std::nullopt;
  return text;
}

std::optional<std::string> withoutTextList(const MCPStore& store, const std::string& path) {
  const auto failed = failedFiles(store.rdb, path);
  if (!failed) return std::nullopt;
  std::string text;
  for (const FailedFile& file : *failed) {
    text += std::string(failureText(file.reason)) + ": " + printable(file.path) + "\n";
  }
  return text;
}

}  // namespace norvast
