#include "companion/index_files.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "companion/index_database.h"
#include "companion/type_group.h"
#include "store/statement.h"

namespace norvast {
namespace {

// Rows written in one transaction: a few milliseconds of write lock.
constexpr std::size_t ROWS_A_BATCH = 1000;

constexpr std::array TABLES = {"file", "mcp_exposure", "analysis", "embedding", "chunk"};

struct KnownFile {
  std::int64_t sizeBytes = 0;
  std::int64_t modified = 0;
  bool isThere = false;
};

// What is below a path in the byte order of paths: from "/a/" to before "/a0", the character
// behind the solidus.
std::string firstBelow(const std::string& path) { return path == "/" ? path : path + "/"; }
std::string firstBehind(const std::string& path) { return path == "/" ? "0" : path + "0"; }

bool isBelow(std::string_view path, const std::string& folder) {
  return path.starts_with(firstBelow(folder));
}

class Indexing {
 public:
  Indexing(const Connection& connection, std::optional<Nomination> nomination)
      : connection_(connection), nomination_(nomination) {}

  void run(const std::string& root) {
    readKnown(root);
    ScanReport scan = scanFiles(root, [this](const ScannedFile& file) { take(file); });
    dropVanished(scan.unreadableFolders);
    flush();
    std::move(scan.unreadableFolders.begin(), scan.unreadableFolders.end(),
              std::back_inserter(report.scan.unreadableFolders));
    report.scan.unusableNames += scan.unusableNames;
  }

  IndexingReport report;

 private:
  void readKnown(const std::string& root) {
    known_.clear();
    Statement statement(connection_,
                        "SELECT path, size, modified FROM file WHERE path = ? OR (path >= ? AND "
                        "path < ?)",
                        std::vector{root, firstBelow(root), firstBehind(root)});
    while (statement.step()) {
      known_[statement.text(0)] = {statement.integer(1), statement.integer(2), false};
    }
  }

  void take(const ScannedFile& file) {
    const auto known = known_.find(file.path);
    const bool isKnown = known != known_.end();
    if (isKnown) known->second.isThere = true;
    const bool isUnchanged = isKnown && known->second.sizeBytes == file.sizeBytes &&
                             known->second.modified == file.modified;
    if (isUnchanged) {
      ++report.unchanged;
    } else {
      changed_.push_back(file);
    }
    if (nomination_) nominated_.push_back(file.path);
    if (changed_.size() + nominated_.size() >= ROWS_A_BATCH) flush();
  }

  void dropVanished(const std::vector<std::string>& unreadableFolders) {
    for (const auto& [path, known] : known_) {
      const bool isHidden =
          std::any_of(unreadableFolders.begin(), unreadableFolders.end(),
                      [&path = path](const std::string& folder) { return isBelow(path, folder); });
      if (known.isThere || isHidden) continue;
      vanished_.push_back(path);
      if (vanished_.size() >= ROWS_A_BATCH) flush();
    }
  }

  // Writes what has gathered, in one transaction.
  void flush() {
    if (changed_.empty() && nominated_.empty() && vanished_.empty()) return;
    Transaction transaction(connection_);
    if (writeFiles() && writeNominations() && removeVanished() && transaction.commit()) {
      report.indexed += changed_.size();
      report.nominated += nominated_.size();
      report.removed += vanished_.size();
    } else {
      report.isComplete = false;
    }
    changed_.clear();
    nominated_.clear();
    vanished_.clear();
  }

  bool writeFiles() {
    Statement insert(connection_,
                     "INSERT OR REPLACE INTO file(path,name,ext,grp,size,modified) "
                     "VALUES(?,?,?,?,?,?)");
    return std::all_of(changed_.begin(), changed_.end(), [&insert](const ScannedFile& file) {
      const std::string extension = fileExtension(file.path);
      insert.bind(1, file.path);
      insert.bind(2, std::string(fileName(file.path)));
      insert.bind(3, extension);
      insert.bind(4, std::string(typeGroup(extension)));
      insert.bind(5, file.sizeBytes);
      insert.bind(6, file.modified);
      const bool isWritten = insert.run();
      insert.reset();
      return isWritten;
    });
  }

  bool writeNominations() {
    Statement insert(connection_,
                     "INSERT OR REPLACE INTO mcp_exposure(path,allow_content) VALUES(?,?)");
    return std::all_of(nominated_.begin(), nominated_.end(), [&](const std::string& path) {
      insert.bind(1, path);
      insert.bind(2, std::int64_t{nomination_ == Nomination::content ? 1 : 0});
      const bool isWritten = insert.run();
      insert.reset();
      return isWritten;
    });
  }

  bool removeVanished() {
    if (vanished_.empty()) return true;
    return std::all_of(TABLES.begin(), TABLES.end(), [this](const char* table) {
      Statement remove(connection_, "DELETE FROM " + std::string(table) + " WHERE path = ?");
      return std::all_of(vanished_.begin(), vanished_.end(), [&remove](const std::string& path) {
        remove.bind(1, path);
        const bool isRemoved = remove.run();
        remove.reset();
        return isRemoved;
      });
    });
  }

  const Connection& connection_;
  std::optional<Nomination> nomination_;
  std::unordered_map<std::string, KnownFile> known_;  // of the root at hand
  std::vector<ScannedFile> changed_;
  std::vector<std::string> nominated_;
  std::vector<std::string> vanished_;
};

}  // namespace

IndexingReport indexFiles(const Connection& connection, const std::vector<std::string>& roots,
                          std::optional<Nomination> nomination) {
  Indexing indexing(connection, nomination);
  for (const std::string& root : roots) indexing.run(root);
  return std::move(indexing.report);
}

}  // namespace norvast
