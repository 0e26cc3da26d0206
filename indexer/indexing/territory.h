// Territory: what of a root is indexed by its scan, as far as the user decided that.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "indexer/decisions/decisions.h"
#include "indexer/decisions/exclusions.h"
#include "indexer/decisions/path_sample.h"
#include "indexer/indexing/file_scan.h"
#include "indexer/indexing/git_ignores.h"

namespace norvast::indexer {

// The folder of the index, free of links; nothing as long as there is none.
std::optional<std::string> indexFolder();

// What a scan left out because of what the user decided.
struct LeftOut {
  PathSample ruledOut;  // files and folders, by a rule
  PathSample excluded;  // by a pattern
  PathSample gitIgnored;
  PathSample cacheFolders;
  std::set<std::string> usedPatterns;
};

// Leaves out what a rule or a pattern leaves out, what git ignores, folders marked as caches, what
// lies in another root within this one, and the folder of the index itself. The patterns of roots
// further out hold, too; the root itself is taken whatever they say. Decisions and root outlive it,
// and so does `leftOut`, to which it adds.
class Territory : public ScanFilter {
 public:
  Territory(const Decisions& decisions, const Root& root, LeftOut& leftOut);

  bool enters(const std::string& folder) override;
  bool takes(const std::string& path, std::string_view name, EntryKind kind) override;

 private:
  bool isLeftOut(const std::string& path) const;
  bool isDecidedFor(const std::string& path, EntryKind kind) const;
  bool isExcluded(const std::string& path, std::string_view name, EntryKind kind);

  const Decisions& decisions_;
  const Root& root_;
  LeftOut& leftOut_;
  std::vector<Exclusion> exclusions_;
  std::optional<GitIgnores> gitIgnores_;
  std::optional<std::string> ownFolder_;  // of the index
  // Of the folder entered last: a rule leaves it out; nothing is decided about a part of it.
  bool isLeftOutHere_ = false;
  bool isPlain_ = false;
};

}  // namespace norvast::indexer
