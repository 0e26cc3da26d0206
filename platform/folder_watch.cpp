#include "platform/folder_watch.h"

#include <sys/inotify.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>

namespace norvast {
namespace {

// A file is looked at when its writer closes it or it has another name, time or mode; and while it
// is written to, as logs are for days.
constexpr std::uint32_t WANTED = IN_CLOSE_WRITE | IN_MODIFY | IN_ATTRIB | IN_CREATE | IN_DELETE |
                                 IN_MOVED_FROM | IN_MOVED_TO | IN_MOVE_SELF | IN_ONLYDIR |
                                 IN_DONT_FOLLOW | IN_EXCL_UNLINK;

// Room for some hundred events with names of usual length, and for one with the longest.
constexpr std::size_t BYTES_A_READ = std::size_t{32} * 1024;

// Both halves of a move come in one go; a reader may be between them.
constexpr std::chrono::milliseconds HALF_MOVE_TIME{20};

bool isAtOrBelow(std::string_view path, std::string_view folder) {
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

std::string entryOf(const std::string& folder, const char* name) {
  return folder == "/" ? "/" + std::string(name) : folder + "/" + name;
}

}  // namespace

std::optional<FolderWatch> FolderWatch::open() {
  Descriptor queue(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
  if (!queue) return std::nullopt;
  return FolderWatch(std::move(queue));
}

WatchOutcome FolderWatch::add(const std::string& folder) {
  const int watch = inotify_add_watch(queue_.number(), folder.c_str(), WANTED);
  if (watch < 0) return errno == ENOSPC ? WatchOutcome::noRoom : WatchOutcome::gone;
  // The kernel knows folders, not paths: one that came here unseen keeps its watch.
  if (const auto known = folders_.find(watch); known != folders_.end()) {
    watches_.erase(known->second);
  }
  folders_[watch] = folder;
  watches_[folder] = watch;
  return WatchOutcome::watched;
}

void FolderWatch::forget(const std::string& folder) {
  for (auto at = watches_.lower_bound(folder);
       at != watches_.end() && at->first.starts_with(folder);) {
    if (isAtOrBelow(at->first, folder)) {
      (void)inotify_rm_watch(queue_.number(), at->second);  // fails where the folder is gone
      folders_.erase(at->second);
      at = watches_.erase(at);
    } else {
      ++at;
    }
  }
}

std::vector<FolderEvent> FolderWatch::take() {
  std::vector<FolderEvent> events;
  alignas(inotify_event) std::array<char, BYTES_A_READ> bytes{};
  do {
    while (const auto count = queue_.readAtOnce(bytes)) {
      if (*count == 0) break;
      takeBytes(std::span(bytes).first(*count), events);
    }
  } while (!leaving_.empty() &&
           queue_.waitForInput(std::chrono::steady_clock::now() + HALF_MOVE_TIME));
  for (const auto& [cookie, path] : std::exchange(leaving_, {})) {
    forget(path);
    events.push_back({FolderEvent::Kind::folderGone, path, {}});
  }
  return events;
}

void FolderWatch::takeBytes(std::span<const char> bytes, std::vector<FolderEvent>& events) {
  while (bytes.size() >= sizeof(inotify_event)) {
    inotify_event event{};
    std::memcpy(&event, bytes.data(), sizeof event);
    const char* name = event.len > 0 ? bytes.data() + sizeof event : nullptr;
    bytes = bytes.subspan(sizeof event + event.len);
    if ((event.mask & IN_Q_OVERFLOW) != 0) events.push_back({FolderEvent::Kind::lost, {}, {}});
    if ((event.mask & IN_IGNORED) != 0) drop(event.wd);
    const auto folder = folders_.find(event.wd);
    if (folder == folders_.end()) continue;
    if ((event.mask & IN_MOVE_SELF) != 0) takeOwnMove(folder->second, events);
    if (name != nullptr) {
      takeNotice({event.mask, event.cookie, entryOf(folder->second, name)}, events);
    }
  }
}

void FolderWatch::takeNotice(const Notice& notice, std::vector<FolderEvent>& events) {
  using Kind = FolderEvent::Kind;
  const bool isFolder = (notice.what & IN_ISDIR) != 0;
  if (isFolder && (notice.what & (IN_MOVED_FROM | IN_MOVED_TO)) != 0) {
    takeHalfMove(notice, events);
  } else if ((notice.what & (IN_DELETE | IN_MOVED_FROM)) != 0) {
    if (isFolder) forget(notice.path);
    events.push_back({isFolder ? Kind::folderGone : Kind::fileGone, notice.path, {}});
  } else if ((notice.what & (IN_CREATE | IN_MOVED_TO)) != 0) {
    events.push_back({isFolder ? Kind::folderAppeared : Kind::fileAppeared, notice.path, {}});
  } else {
    events.push_back({isFolder ? Kind::folderChanged : Kind::fileChanged, notice.path, {}});
  }
}

// The kernel puts one half behind the other, with at most a few of other moves between.
void FolderWatch::takeHalfMove(const Notice& notice, std::vector<FolderEvent>& events) {
  if ((notice.what & IN_MOVED_FROM) != 0) {
    leaving_[notice.cookie] = notice.path;
    return;
  }
  const auto origin = leaving_.find(notice.cookie);
  if (origin == leaving_.end()) {
    events.push_back({FolderEvent::Kind::folderAppeared, notice.path, {}});
    return;
  }
  move(origin->second, notice.path);
  events.push_back({FolderEvent::Kind::folderMoved, origin->second, notice.path});
  leaving_.erase(origin);
}

// Told of a folder after both halves of its move, if its own folder is watched; that of one whose
// own is not leads to a place that nobody knows.
void FolderWatch::takeOwnMove(const std::string& folder, std::vector<FolderEvent>& events) {
  if (watches_.contains(folder.substr(0, std::max<std::size_t>(folder.rfind('/'), 1)))) return;
  events.push_back({FolderEvent::Kind::folderGone, folder, {}});
  forget(events.back().path);  // the name at hand goes with the watch
}

void FolderWatch::move(const std::string& from, const std::string& to) {
  forget(to);  // an empty folder that was replaced
  std::vector<std::pair<std::string, int>> moved;
  for (auto at = watches_.lower_bound(from); at != watches_.end() && at->first.starts_with(from);) {
    if (isAtOrBelow(at->first, from)) {
      moved.emplace_back(to + at->first.substr(from.size()), at->second);
      at = watches_.erase(at);
    } else {
      ++at;
    }
  }
  for (auto& [path, watch] : moved) {
    folders_[watch] = path;
    watches_.insert_or_assign(std::move(path), watch);
  }
}

void FolderWatch::drop(int watch) {
  const auto folder = folders_.find(watch);
  if (folder == folders_.end()) return;
  watches_.erase(folder->second);
  folders_.erase(folder);
}

}  // namespace norvast
