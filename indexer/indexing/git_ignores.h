// Git ignores: what git passes over in the work trees that a scan meets.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "indexer/indexing/file_scan.h"

struct git_repository;

namespace norvast::indexer {

// One for a scan. A repository that cannot be read ignores nothing.
class GitIgnores {
 public:
  GitIgnores() = default;
  ~GitIgnores();
  GitIgnores(const GitIgnores&) = delete;
  GitIgnores& operator=(const GitIgnores&) = delete;

  // Before the entries of a folder are asked for: looks whether a work tree begins there. For the
  // first folder also whether it lies in one.
  void enter(const std::string& folder);

  // Whether git ignores the entry of the folder that was entered last. What git keeps track of is
  // never ignored, whatever its patterns say.
  bool ignores(const std::string& path, EntryKind kind) const;

 private:
  struct Close {
    void operator()(git_repository* repository) const;
  };
  using Repository = std::unique_ptr<git_repository, Close>;

  void start();
  void open(const std::string& place, unsigned flags);

  std::map<std::string, Repository, std::less<>> workTrees_;  // by their folders
  std::string tree_;                                          // of the folder entered last
  git_repository* repository_ = nullptr;
  bool isStarted_ = false;
  bool isFirst_ = true;
};

}  // namespace norvast::indexer
