// Folder watch: what changes in folders, as the operating system tells it (inotify(7)).
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/descriptor.h"

namespace norvast {

struct FolderEvent {
  enum class Kind {
    fileChanged,    // written to, or it got another time or other permissions
    fileGone,       // removed or moved away
    fileAppeared,   // made or moved here
    folderChanged,  // got other permissions
    folderAppeared,
    folderGone,
    folderMoved,  // from `path` to `target`, both in watched folders
    lost,         // events went missing: anything may have changed; no path
  };
  Kind kind = Kind::lost;
  std::string path;
  std::string target;
};

enum class WatchOutcome {
  watched,
  gone,    // there is no such folder, or it may not be read
  noRoom,  // the user's limit of watches is reached
};

class FolderWatch {
 public:
  // Nothing when the system gives no queue for events.
  static std::optional<FolderWatch> open();

  // Tells from now on what changes among the entries of the folder itself, not below it. The path
  // is absolute and free of links. Watching it again changes nothing.
  WatchOutcome add(const std::string& folder);

  // No longer watches the folder and what lies below it.
  void forget(const std::string& folder);

  // What happened since the last call, in order. Waits for nothing but the second half of a move. A
  // folder that was moved is watched at its new place with all below it.
  std::vector<FolderEvent> take();

  bool isWatched(const std::string& folder) const { return watches_.contains(folder); }

  // Readable when there is something to take.
  const Descriptor& queue() const { return queue_; }

 private:
  explicit FolderWatch(Descriptor queue) : queue_(std::move(queue)) {}

  // What the kernel tells of one entry of a folder.
  struct Notice {
    std::uint32_t what = 0;
    std::uint32_t cookie = 0;  // the same for both halves of a move
    std::string path;
  };
  void takeNotice(const Notice& notice, std::vector<FolderEvent>& events);
  void takeBytes(std::span<const char> bytes, std::vector<FolderEvent>& events);
  void takeHalfMove(const Notice& notice, std::vector<FolderEvent>& events);
  void takeOwnMove(const std::string& folder, std::vector<FolderEvent>& events);
  void move(const std::string& from, const std::string& to);
  void drop(int watch);

  Descriptor queue_;
  std::unordered_map<int, std::string> folders_;  // by watch
  std::map<std::string, int, std::less<>> watches_;
  std::unordered_map<std::uint32_t, std::string> leaving_;  // moved folders, by cookie
};

}  // namespace norvast
