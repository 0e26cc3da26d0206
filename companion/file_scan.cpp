#include "companion/file_scan.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string_view>

#include "access/sensitive_path.h"
#include "platform/descriptor.h"
#include "text/utf8.h"

namespace norvast {
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

bool isUsable(std::string_view name) {
  return name.find_first_of("\n\r") == std::string_view::npos &&
         validUtf8Length(name) == name.size();
}

ScannedFile describe(std::string path, const struct stat& status) {
  return {std::move(path), status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

class Scan {
 public:
  Scan(const std::function<void(ScannedFile)>& visit, ScanReport& report)
      : visit_(visit), report_(report) {}

  void run(const std::string& root) {
    if (isSensitive(root)) {
      ++report_.sensitivePaths;
      return;
    }
    if (!isUsable(root)) {
      ++report_.unusableNames;
      return;
    }
    struct stat status {};
    if (lstat(root.c_str(), &status) != 0) {
      if (!isGone()) report_.unreadableFolders.push_back(root);
      return;
    }
    if (S_ISREG(status.st_mode)) visit_(describe(root, status));
    if (S_ISDIR(status.st_mode)) waiting_.push_back(root);
    while (!waiting_.empty()) {
      const std::string folder = std::move(waiting_.back());
      waiting_.pop_back();
      scanFolder(folder);
    }
  }

 private:
  void scanFolder(const std::string& path) {
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
    if (isSensitive(path)) {
      ++report_.sensitivePaths;
      return true;
    }
    if (!isUsable(name)) {
      ++report_.unusableNames;
      return true;
    }
    if (entry.d_type == DT_DIR) {
      waiting_.push_back(std::move(path));
      return true;
    }
    struct stat status {};
    if (fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) return isGone();
    if (S_ISREG(status.st_mode)) {
      visit_(describe(std::move(path), status));
    } else if (S_ISDIR(status.st_mode)) {
      waiting_.push_back(std::move(path));
    }
    return true;
  }

  const std::function<void(ScannedFile)>& visit_;
  ScanReport& report_;
  std::vector<std::string> waiting_;  // folders still to be scanned
};

}  // namespace

void scanFiles(const std::string& root, const std::function<void(ScannedFile)>& visit,
               ScanReport& report) {
  Scan(visit, report).run(root);
}

}  // namespace norvast
