// Recognition languages that the user chose.
#include <gtest/gtest.h>

#include "tests/harness/file_bytes.h"
#include "tests/harness/index_command.h"

namespace norvast {
namespace {

constexpr const char* CHOSEN = "SELECT value FROM setting WHERE name = 'recognition_languages'";
constexpr const char* FAILURES = "SELECT count(*) FROM failure";

TEST(ChosenRecognitionLanguage, CountsInLaterRunsAndMustBeInstalled) {
  const TestHome home;
  home.writeFile(home.path() / "docs/a.png", fileBytes(SAMPLES "/receipts/Garden centre.png"));
  for (const char* unknown : {"none", "eng+none", "''", "+", "../eng"}) {
    const Outcome refused = index(home, "add docs --ocr-language " + std::string(unknown));
    EXPECT_EQ(refused.status, 1) << unknown;
    EXPECT_NE(refused.output.find("is installed; on Debian"), std::string::npos) << refused.output;
  }
  ASSERT_EQ(index(home, "add docs --ocr-language eng+eng").status, 0);
  EXPECT_EQ(home.query(CHOSEN), std::vector<std::string>{"eng+eng"});
  EXPECT_EQ(home.query(FAILURES), std::vector<std::string>{"0"});
  home.execute("UPDATE setting SET value = 'none' WHERE name = 'recognition_languages'");
  EXPECT_EQ(index(home, "add --force docs").status, 3);
  EXPECT_EQ(home.query(FAILURES), std::vector<std::string>{"1"});
}

}  // namespace
}  // namespace norvast
