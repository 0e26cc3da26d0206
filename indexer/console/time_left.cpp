#include "indexer/console/time_left.h"

#include <algorithm>

namespace norvast::indexer {
namespace {

// What one reader takes, on an ordinary machine.
struct Cost {
  double secondsAFile;
  double secondsAByte;
};

// How many files of ordinary cost are added to those that are done: few, for they only keep the
// first ones from deciding alone.
constexpr double ORDINARY_FILES = 0.5;

// A larger image is a finer picture, and no longer text to recognise.
constexpr std::int64_t MOST_IMAGE_BYTES = 300'000;

double telling(const FileKind& kind, std::int64_t bytes) {
  return static_cast<double>(kind.way == FileKind::Way::image ? std::min(bytes, MOST_IMAGE_BYTES)
                                                              : bytes);
}

Cost ordinaryCost(FileKind::Way way) {
  switch (way) {
    case FileKind::Way::image:
      return {0.3, 3e-6};
    case FileKind::Way::pdf:
      return {0.03, 2e-7};
    case FileKind::Way::document:
      return {0.02, 3e-7};
    case FileKind::Way::text:
    case FileKind::Way::lies:
    case FileKind::Way::none:
      break;
  }
  return {0.0005, 2e-7};
}

}  // namespace

void TimeLeft::Sums::add(double weight, double bytesOfFile, double secondsOfFile) {
  files += weight;
  bytes += weight * bytesOfFile;
  seconds += weight * secondsOfFile;
  bytesSquared += weight * bytesOfFile * bytesOfFile;
  bytesBySeconds += weight * bytesOfFile * secondsOfFile;
}

// By the line of least squares (https://en.wikipedia.org/wiki/Simple_linear_regression), where
// neither a file nor a byte costs less than nothing.
double TimeLeft::KindOfFiles::secondsLeft(FileKind::Way way) const {
  const Cost cost = ordinaryCost(way);
  const double large = 2 * bytes / files;
  Sums sums = done;
  sums.add(ORDINARY_FILES / 2, 0, cost.secondsAFile);
  sums.add(ORDINARY_FILES / 2, large, cost.secondsAFile + large * cost.secondsAByte);
  const double spread = sums.files * sums.bytesSquared - sums.bytes * sums.bytes;
  const double slope =
      spread > 0 ? (sums.files * sums.bytesBySeconds - sums.bytes * sums.seconds) / spread : 0;
  const double secondsAByte =
      sums.bytes > 0 ? std::clamp(slope, 0.0, sums.seconds / sums.bytes) : 0;
  const double secondsAFile = (sums.seconds - secondsAByte * sums.bytes) / sums.files;
  return secondsAFile * (files - done.files) + secondsAByte * (bytes - done.bytes);
}

void TimeLeft::expect(const FileKind& kind, std::int64_t bytes) {
  KindOfFiles& all = kinds_[{kind.way, kind.kind}];
  ++all.files;
  all.bytes += telling(kind, bytes);
}

void TimeLeft::finish(const FileKind& kind, std::int64_t bytes, double seconds) {
  kinds_[{kind.way, kind.kind}].done.add(1, telling(kind, bytes), seconds);
}

double TimeLeft::seconds() const {
  double seconds = 0;
  for (const auto& [key, files] : kinds_) seconds += files.secondsLeft(key.first);
  return seconds;
}

}  // namespace norvast::indexer
