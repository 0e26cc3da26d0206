// Time left: how long the rest of a run takes, told by what the files done so far took.
#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <utility>

#include "content/file_kind.h"

namespace norvast::indexer {

class TimeLeft {
 public:
  // A file of the run; all of them are expected before the first is done.
  void expect(const FileKind& kind, std::int64_t bytes);

  // One that was expected is done, `seconds` after the one before it.
  void finish(const FileKind& kind, std::int64_t bytes, double seconds);

  // For all that are not done. A file of a kind is taken to cost so much, and so much for each
  // byte, as fits those done best; of a large image only some bytes count. A kind of which none is
  // done yet costs what it does on an ordinary machine.
  double seconds() const;

 private:
  // Sums over files that are done.
  struct Sums {
    double files = 0;
    double bytes = 0;
    double seconds = 0;
    double bytesSquared = 0;
    double bytesBySeconds = 0;

    void add(double weight, double bytesOfFile, double secondsOfFile);
  };

  struct KindOfFiles {
    double files = 0;  // all of them
    double bytes = 0;
    Sums done;

    double secondsLeft(FileKind::Way way) const;
  };

  using Key = std::pair<FileKind::Way, std::string_view>;

  std::map<Key, KindOfFiles> kinds_;
};

}  // namespace norvast::indexer
