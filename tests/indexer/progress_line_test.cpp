// The progress in one row, however narrow the terminal.
#include "indexer/console/progress_line.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "text/unicode.h"

namespace norvast {
using namespace indexer;

namespace {

TEST(ProgressLine, FitsIntoOneRow) {
  const ProgressState state{0.5, 1'234, 5'200, 47.6, 75};
  EXPECT_EQ(progressLine(state, 72),
            "█████████████░░░░░░░░░░░░░ 1,234 of 5,200 files, 48 a second, 1:15 left");
  EXPECT_EQ(progressLine(state, 40), "████░░░ 1,234 of 5,200 files, 1:15 left");
  EXPECT_EQ(progressLine(state, 20), "1,234 of 5,200 file");
  for (std::size_t columns = 0; columns < 100; ++columns) {
    EXPECT_LT(countClusters(progressLine(state, columns)), std::max<std::size_t>(columns, 1));
  }
}

}  // namespace
}  // namespace norvast
