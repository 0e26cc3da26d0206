// Files that change between being opened and being read.
#include "content/isolated_extraction.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "content/utf8_file.h"
#include "tests/harness/file_bytes.h"
#include "tests/harness/test_home.h"

namespace norvast {
namespace {

TEST(ChangingFile, GivesNothingOfWhatItLost) {
  const TestHome home;
  const auto path = home.path() / "file";
  for (const std::uintmax_t left : {std::uintmax_t{0}, std::uintmax_t{40}}) {
    home.writeFile(path, fileBytes(TEST_DATA "/pdf/lines.pdf"));
    const auto file = openRegularFile(path);
    std::filesystem::resize_file(path, left);
    EXPECT_EQ(isolatedPdfText(*file, 100).index(), 1U) << left;
    EXPECT_EQ(isolatedImageText(*file, 100).index(), 1U) << left;
  }
  home.writeFile(path, "häuser");
  const auto text = openRegularFile(path);
  std::filesystem::resize_file(path, 2);
  EXPECT_EQ(leadingUtf8(*text, 3), std::nullopt);  // half a character that no limit cut
}

}  // namespace
}  // namespace norvast
