#include "indexer/indexing/git_ignores.h"

#include <git2.h>
#include <sys/stat.h>

#include <optional>
#include <string_view>

#include "indexer/decisions/rules.h"

namespace norvast::indexer {
namespace {

struct FreeIndex {
  void operator()(git_index* index) const { git_index_free(index); }
};

bool isTracked(git_repository* repository, const std::string& path, EntryKind kind) {
  git_index* opened = nullptr;
  if (git_repository_index(&opened, repository) != 0) return false;
  const std::unique_ptr<git_index, FreeIndex> index(opened);
  if (kind == EntryKind::folder) return git_index_find_prefix(nullptr, opened, path.c_str()) == 0;
  return git_index_get_bypath(opened, path.c_str(), 0) != nullptr;
}

bool exists(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0;
}

bool isWithinWorkTree(const std::string& folder) {
  for (std::optional<std::string_view> place = folder; place; place = parentOf(*place)) {
    if (exists(std::string(*place) + "/.git")) return true;
  }
  return false;
}

}  // namespace

// The library reads the certificates of the whole system when it starts, which takes longer than a
// run over a few files: it starts with the first work tree.
void GitIgnores::start() {
  if (isStarted_) return;
  isStarted_ = true;
  (void)git_libgit2_init();
  // Whoever owns a work tree: what is ignored there is no less unwanted here.
  (void)git_libgit2_opts(GIT_OPT_SET_OWNER_VALIDATION, 0);
}

GitIgnores::~GitIgnores() {
  workTrees_.clear();
  if (isStarted_) (void)git_libgit2_shutdown();
}

void GitIgnores::Close::operator()(git_repository* repository) const {
  git_repository_free(repository);
}

void GitIgnores::open(const std::string& place, unsigned flags) {
  start();
  git_repository* opened = nullptr;
  if (git_repository_open_ext(&opened, place.c_str(), flags, nullptr) != 0) return;
  Repository repository(opened);
  const char* folder = git_repository_workdir(opened);
  if (folder == nullptr) return;
  std::string path = folder;
  if (path.size() > 1 && path.ends_with('/')) path.pop_back();
  workTrees_[path] = std::move(repository);
}

void GitIgnores::enter(const std::string& folder) {
  if (isFirst_) {
    isFirst_ = false;
    if (isWithinWorkTree(folder)) open(folder, 0);
  } else if (exists(folder + "/.git")) {
    open(folder, GIT_REPOSITORY_OPEN_NO_SEARCH);
  }
  repository_ = nullptr;
  if (workTrees_.empty()) return;
  for (std::optional<std::string_view> place = folder; place; place = parentOf(*place)) {
    const auto tree = workTrees_.find(*place);
    if (tree == workTrees_.end()) continue;
    tree_ = tree->first;
    repository_ = tree->second.get();
    return;
  }
}

bool GitIgnores::ignores(const std::string& path, EntryKind kind) const {
  if (repository_ == nullptr) return false;
  std::string below = path.substr(tree_.size() + (tree_.ends_with('/') ? 0 : 1));
  if (kind == EntryKind::folder) below += '/';
  int isIgnored = 0;
  return git_ignore_path_is_ignored(&isIgnored, repository_, below.c_str()) == 0 &&
         isIgnored != 0 && !isTracked(repository_, below, kind);
}

}  // namespace norvast::indexer
