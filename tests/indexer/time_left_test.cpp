// The time left: told soon and not far off, whatever comes last and however fast the machine is.
#include "indexer/console/time_left.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "indexer/indexing/reading_order.h"

namespace norvast {
using namespace indexer;

namespace {

// So many files of one kind, and what one takes: so much by itself and by its bytes, times up to
// `spread` and divided by it.
struct Folder {
  const char* extension;
  int files;
  std::int64_t mostBytes;
  double secondsAFile;
  double secondsAByte;
  double spread;
};

double secondsFor(const Folder& folder, std::int64_t bytes, double luck) {
  return (folder.secondsAFile + static_cast<double>(bytes) * folder.secondsAByte) *
         std::pow(folder.spread, luck);
}

// The worst quotient of the time told and the time that it then took, or the reverse, between the
// first and the last tenth of a run.
double worstFactor(const std::vector<Folder>& folders, double slowness) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> luck(-1, 1);
  std::vector<ScannedFile> files;
  for (const Folder& folder : folders) {
    for (int at = 0; at < folder.files; ++at) {
      const auto bytes = static_cast<std::int64_t>(random()) % folder.mostBytes;
      files.push_back({std::string("/f.") + folder.extension, bytes, 0, 0});
    }
  }
  putSampleFirst(files);
  TimeLeft left;
  std::vector<double> seconds;
  for (const ScannedFile& file : files) {
    left.expect(expectedKind(file), file.sizeBytes);
    for (const Folder& folder : folders) {
      if (!file.path.ends_with(folder.extension)) continue;
      seconds.push_back(slowness * secondsFor(folder, file.sizeBytes, luck(random)));
    }
  }
  const double all = std::accumulate(seconds.begin(), seconds.end(), 0.0);
  double passed = 0;
  double worst = 1;
  for (std::size_t at = 0; at < files.size(); ++at) {
    left.finish(expectedKind(files[at]), files[at].sizeBytes, seconds[at]);
    passed += seconds[at];
    if (passed < all / 10 || passed > all * 9 / 10) continue;
    const double quotient = left.seconds() / (all - passed);
    worst = std::max({worst, quotient, 1 / quotient});
  }
  EXPECT_NEAR(left.seconds(), 0, all / 1e6);
  return worst;
}

TEST(TimeLeft, IsRightWithinAFactorOfTwoFromTheFirstTenthOn) {
  const Folder texts{"txt", 3000, 50'000, 0.001, 2e-7, 3};
  const Folder logs{"log", 20, 300'000'000, 0.001, 2e-7, 1.5};
  const Folder papers{"pdf", 100, 3'000'000, 0.05, 3e-7, 4};
  const Folder photos{"jpg", 15, 300'000, 12, 0, 1.2};  // of a kind with the scans
  const Folder scans{"png", 150, 4'000'000, 1.5, 0, 5};
  for (const auto& folders :
       {std::vector{texts, papers, scans}, std::vector{texts, photos, scans},
        std::vector{scans, texts}, std::vector{texts, logs}, std::vector{papers, texts},
        std::vector{texts, scans, papers, logs}}) {
    for (const double slowness : {0.05, 1.0, 20.0}) {
      EXPECT_LT(worstFactor(folders, slowness), 2)
          << folders.front().extension << " first, " << slowness;
    }
  }
}

// Vectors are made again from the index: no file has any bytes.
TEST(TimeLeft, IsToldByNumberWhereThereAreNoBytes) {
  TimeLeft left;
  const FileKind kind{FileKind::Way::text, {}};
  for (int at = 0; at < 100; ++at) left.expect(kind, 0);
  for (int at = 0; at < 50; ++at) left.finish(kind, 0, 2);
  EXPECT_NEAR(left.seconds(), 100, 2);
}

}  // namespace
}  // namespace norvast
