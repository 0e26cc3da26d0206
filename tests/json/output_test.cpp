// Output: a line that could not be written whole is the last one.
#include "server/output.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "tests/harness/file_bytes.h"
#include "tests/harness/test_home.h"

namespace norvast {
namespace {

TEST(Output, EndsWithTheLineThatIsTorn) {
  const TestHome home;
  const std::filesystem::path path = home.path() / "output";
  const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
  Output output(file);
  output.writeLine("a first line");

  rlimit whole{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &whole), 0);
  const rlimit full{20, whole.rlim_max};
  (void)std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
  output.writeLine("a second line");
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &whole), 0);

  output.writeLine("a third line");
  EXPECT_EQ(fileBytes(path), "a first line\na secon");
}

}  // namespace
}  // namespace norvast
