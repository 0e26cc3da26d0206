#include "indexer/watching/watching.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <utility>

#include "embedding/sentence_embedding.h"
#include "indexer/decisions/decisions.h"
#include "indexer/indexing/territory.h"
#include "indexer/watching/moved_folder.h"
#include "indexer/watching/pending_paths.h"
#include "indexer/watching/watched_folders.h"
#include "platform/folder_watch.h"
#include "text/file_name.h"

namespace norvast::indexer {
namespace {

using Clock = std::chrono::steady_clock;

// Between two looks at what cannot be watched.
constexpr std::chrono::seconds WALK_INTERVAL{60};

bool isSame(const std::vector<Root>& one, const std::vector<Root>& other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](const Root& left, const Root& right) {
                      return left.path == right.path && left.gitIgnored == right.gitIgnored &&
                             left.exclusions == right.exclusions;
                    });
}

// The paths about which two sets of rules differ.
std::vector<std::string> changedRules(const Rules& before, const Rules& after) {
  std::vector<std::string> changed;
  for (const Rule& rule : before.all()) {
    if (after.at(rule.path) != rule.kind) changed.push_back(rule.path);
  }
  for (const Rule& rule : after.all()) {
    if (!before.at(rule.path)) changed.push_back(rule.path);
  }
  return changed;
}

class Watching {
 public:
  Watching(const Connection& index, const StopSignal& stop, const WatchListener& listener,
           FolderWatch files, FolderWatch own)
      : index_(index),
        stop_(stop),
        listener_(listener),
        current_(index),
        folders_(std::move(files)),
        own_(std::move(own)) {}

  std::optional<std::string> run() {
    if (const auto folder = indexFolder()) (void)own_.add(*folder);
    const Decisions* first = currentDecisions();
    if (first == nullptr) return obstacle_;
    decisions_ = *first;
    if (!startOver()) return obstacle_;
    while (!stop_.hasCome()) {
      wait();
      takeEvents();
      if (index_.isReplaced()) return index_.lastFailure();
      if (!own_.take().empty() && !takeDecisions()) return obstacle_;
      if (!indexDue()) return obstacle_;
    }
    return std::nullopt;
  }

 private:
  bool startOver() {
    folders_.restart(decisions_);
    tellOfUnwatched();
    nextWalk_ = Clock::now() + WALK_INTERVAL;
    std::vector<std::string> roots;
    for (const Root& root : decisions_.roots) roots.push_back(root.path);
    return indexPaths(roots);
  }

  // Returns nullptr, and sets the obstacle, if they could not be read.
  const Decisions* currentDecisions() {
    const Decisions* current = current_.get();
    if (current == nullptr) obstacle_ = index_.lastFailure();
    return current;
  }

  // What another command decided. It brings the rows in line itself, but for what was left out, and
  // for what changed in a new root before that was watched.
  bool takeDecisions() {
    const Decisions* current = currentDecisions();
    if (current == nullptr) return false;
    const std::vector<std::string> rules = changedRules(decisions_.rules, current->rules);
    const bool areRootsSame = isSame(decisions_.roots, current->roots);
    if (areRootsSame && rules.empty()) return true;
    decisions_ = *current;
    if (!areRootsSame) {
      takeEvents();
      folders_.restart(decisions_);
      tellOfUnwatched();
      for (const Root& root : decisions_.roots) pending_.add(root.path, Clock::now());
    }
    for (const std::string& path : rules) appear(path);
    return true;
  }

  void wait() {
    std::array<pollfd, 3> wanted{pollfd{stop_.arrival().number(), POLLIN, 0},
                                 pollfd{folders_.queue().number(), POLLIN, 0},
                                 pollfd{own_.queue().number(), POLLIN, 0}};
    (void)poll(wanted.data(), wanted.size(), millisecondsToWait());  // interrupted: look about
  }

  // -1 for as long as it takes.
  int millisecondsToWait() const {
    std::optional<Clock::time_point> next = pending_.nextDue();
    if (isWalking()) next = next ? std::min(*next, nextWalk_) : nextWalk_;
    if (!next) return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*next - Clock::now());
    return static_cast<int>(std::max<std::int64_t>(left.count(), 0));
  }

  void takeEvents() {
    for (const FolderEvent& event : folders_.take()) takeEvent(event);
  }

  void takeEvent(const FolderEvent& event) {
    switch (event.kind) {
      case FolderEvent::Kind::lost:
        isLost_ = true;
        return;
      case FolderEvent::Kind::folderMoved:
        pending_.move(event.path, event.target);
        moved_.emplace_back(event.path, event.target);
        appear(event.target);  // it may have been left out at its old place
        pending_.add(event.path, Clock::now());
        return;
      case FolderEvent::Kind::folderAppeared:
      case FolderEvent::Kind::folderChanged:
        appear(event.path);
        return;
      default:
        takeFile(event.path);
    }
  }

  // What some files say decides about all that lies beside and below them.
  void takeFile(const std::string& path) {
    const std::string_view name = fileName(path);
    if (name == ".gitignore" || name == "CACHEDIR.TAG") {
      appear(std::string(parentOf(path).value_or("/")));
    } else {
      pending_.add(path, Clock::now());
    }
  }

  // Watched before it is listed, so that nothing falls between.
  void appear(const std::string& path) {
    folders_.add(decisions_, path);
    pending_.add(path, Clock::now());
  }

  bool indexDue() {
    if (!moved_.empty() && !moveAll()) return false;
    if (std::exchange(isLost_, false)) {
      listener_.remark(
          "more changed at once than the system tells of; looking through all folders");
      return startOver();
    }
    std::vector<std::string> due = pending_.takeDue(Clock::now());
    if (isWalking() && Clock::now() >= nextWalk_) {
      walk(due);
      nextWalk_ = Clock::now() + WALK_INTERVAL;
    }
    return indexPaths(due);
  }

  // What is not moved is read again.
  bool moveAll() {
    for (const auto& [from, to] : std::exchange(moved_, {})) (void)moveRows(index_, from, to);
    current_.forget();
    return takeDecisions();
  }

  bool isWalking() const {
    return !folders_.unwatched().empty() ||
           std::any_of(decisions_.roots.begin(), decisions_.roots.end(),
                       [this](const Root& root) { return !folders_.isWatched(root); });
  }

  void walk(std::vector<std::string>& due) {
    due.insert(due.end(), folders_.unwatched().begin(), folders_.unwatched().end());
    for (const Root& root : decisions_.roots) {
      if (folders_.isWatched(root)) continue;
      folders_.add(decisions_, root.path);  // it may have come back
      due.push_back(root.path);
    }
  }

  // False when the index cannot be written.
  bool indexPaths(const std::vector<std::string>& paths) {
    if (paths.empty()) return true;
    const IndexingReport report =
        indexFiles(index_, sentence_, paths, nullptr, [this] { return stop_.hasCome(); });
    listener_.indexed(report);
    obstacle_ = report.obstacle;
    if (!report.movedRules.empty() || !report.restrictedAgain.empty()) current_.forget();
    return !obstacle_ && takeDecisions();
  }

  void tellOfUnwatched() {
    if (folders_.unwatched().empty()) return;
    listener_.remark("there is no room to watch all folders (fs.inotify.max_user_watches); " +
                     std::to_string(folders_.unwatched().size()) +
                     " of them and what is below are looked through once a minute");
  }

  const Connection& index_;
  const StopSignal& stop_;
  const WatchListener& listener_;
  std::optional<SentenceEmbedding> sentence_ = SentenceEmbedding::english();
  CurrentDecisions current_;
  Decisions decisions_;
  WatchedFolders folders_;
  FolderWatch own_;  // tells that the index was written to
  PendingPaths pending_;
  std::vector<std::pair<std::string, std::string>> moved_;
  bool isLost_ = false;
  Clock::time_point nextWalk_;
  std::optional<std::string> obstacle_;
};

}  // namespace

std::optional<std::string> watchFiles(const Connection& index, const StopSignal& stop,
                                      const WatchListener& listener) {
  auto files = FolderWatch::open();
  auto own = FolderWatch::open();
  if (!files || !own) {
    return "the system gives no more queues for events (fs.inotify.max_user_instances)";
  }
  return Watching(index, stop, listener, std::move(*files), std::move(*own)).run();
}

}  // namespace norvast::indexer
