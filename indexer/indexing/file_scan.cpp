#include "indexer/indexing/file_scan.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string_view>

#include "access/sensitive_path.h"
#include "indexer/decisions/path_range.h"
#include "indexer/decisions/rules.h"
#include "platform/descriptor.h"
#include "text/utf8.h"

namespace norvast::indexer {
namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { (void)closedir(folder); }
};

using Folder = std::unique_ptr<DIR, CloseFolder>;

// A folder that may have become a link in the meantime is not entered.
Folder openFolder(const std::string& path) {
  Descriptor opened(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (!opened) return nullptr;
  Folder folder(fdopendir(opened.number()));
  if (folder) (void)opened.release();
  return folder;
}

// Whether the last call failed because nothing of the kind is there any more.
bool isGone() { return errno == ENOENT || errno == ENOTDIR || errno == ELOOP; }

ScannedFile describe(std::string path, const struct stat& status) {
  return {std::move(path), status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

class Scan {
 public:
  Scan(ScanFilter& filter, const std::function<void(ScannedFile)>& visit, ScanReport& report)
      : filter_(filter), visit_(visit), report_(report) {}

  void run(const std::string& root, const std::string& start) {
    if (isSensitive(root)) {
      report_.sensitivePaths.add(root);
      return;
    }
    if (!isIndexable(root)) {
      report_.unusableNames.add(root);
      return;
    }
    if (isBehindLink(root)) {
      report_.linkedRoots.push_back(root);
      return;
    }
    if (start != root && isBehindLink(std::string(parentOf(start).value_or("/")))) return;
    if (!isReached(root, start)) return;
    scanPlace(start);
    while (!waiting_.empty()) {
      const std::string folder = std::move(waiting_.back());
      waiting_.pop_back();
      scanFolder(folder);
    }
  }

 private:
  // Whether nothing on the way from the root to the start is left out.
  bool isReached(const std::string& root, const std::string& start) {
    std::string place = root;
    while (place.size() < start.size()) {
      const std::size_t from = place.size() + (place.ends_with('/') ? 0 : 1);
      const std::string next = start.substr(0, start.find('/', from));
      const EntryKind kind = next == start ? kindOf(start) : EntryKind::folder;
      if (!filter_.enters(place) || !isTaken(next, std::string_view(next).substr(from), kind)) {
        return false;
      }
      place = next;
    }
    return true;
  }

  static EntryKind kindOf(const std::string& path) {
    struct stat status {};
    const bool isFolder = lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
    return isFolder ? EntryKind::folder : EntryKind::file;
  }

  void scanPlace(const std::string& place) {
    struct stat status {};
    if (lstat(place.c_str(), &status) != 0) {
      if (!isGone()) report_.unreadableFolders.push_back(place);
      return;
    }
    if (S_ISREG(status.st_mode)) visit_(describe(place, status));
    if (S_ISDIR(status.st_mode)) waiting_.push_back(place);
  }

  void scanFolder(const std::string& path) {
    if (!filter_.enters(path)) return;
    const Folder folder = openFolder(path);
    if (!folder) {
      if (!isGone()) report_.unreadableFolders.push_back(path);
      return;
    }
    bool isReadable = true;
    errno = 0;  // the end of the folder leaves it so
    while (const dirent* entry = readdir(folder.get())) {
      isReadable = scanEntry(path, dirfd(folder.get()), *entry) && isReadable;
      errno = 0;
    }
    if (errno != 0 || !isReadable) report_.unreadableFolders.push_back(path);
  }

  // False when the entry may be one to index but cannot be looked at.
  bool scanEntry(const std::string& parent, int folder, const dirent& entry) {
    const std::string_view name = entry.d_name;
    if (name.starts_with('.')) return true;
    if (entry.d_type != DT_REG && entry.d_type != DT_DIR && entry.d_type != DT_UNKNOWN) return true;
    std::string path = parent == "/" ? parent : parent + "/";
    path += name;
    if (entry.d_type == DT_DIR) {
      if (isTaken(path, name, EntryKind::folder)) waiting_.push_back(std::move(path));
      return true;
    }
    struct stat status {};
    if (entry.d_type == DT_REG && !isTaken(path, name, EntryKind::file)) return true;
    if (fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) return isGone();
    const EntryKind kind = S_ISDIR(status.st_mode) ? EntryKind::folder : EntryKind::file;
    if (entry.d_type == DT_UNKNOWN && !isTaken(path, name, kind)) return true;
    if (S_ISREG(status.st_mode)) {
      visit_(describe(std::move(path), status));
    } else if (S_ISDIR(status.st_mode)) {
      waiting_.push_back(std::move(path));
    }
    return true;
  }

  bool isTaken(const std::string& path, std::string_view name, EntryKind kind) {
    if (name.starts_with('.')) return false;
    if (isSensitive(path)) {
      report_.sensitivePaths.add(path);
      return false;
    }
    if (!isIndexable(name)) {
      report_.unusableNames.add(path);
      return false;
    }
    return filter_.takes(path, name, kind);
  }

  ScanFilter& filter_;
  const std::function<void(ScannedFile)>& visit_;
  ScanReport& report_;
  std::vector<std::string> waiting_;  // folders still to be scanned
};

}  // namespace

bool isIndexable(std::string_view path) {
  return path.find_first_of("\n\r") == std::string_view::npos &&
         validUtf8Length(path) == path.size();
}

void scanFiles(const std::string& root, const std::string& start, ScanFilter& filter,
               const std::function<void(ScannedFile)>& visit, ScanReport& report) {
  Scan(filter, visit, report).run(root, start);
}

}  // namespace norvast::indexer
