// The index's own files: none of them is read as a file of the user's, for closing it would drop
// the locks by which SQLite knows that the index is in use.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "content/utf8_file.h"
#include "platform/regular_file.h"
#include "tests/harness/server_session.h"

namespace norvast {
namespace {

TEST(OwnFiles, GiveNoTextAndKeepTheLocks) {
  const TestHome home;
  home.createIndex("PRAGMA journal_mode=WAL");
  const std::string index = home.database();
  const std::vector<std::string> names = {index, index + "-wal", index + "-shm",
                                          home.path() / "link.txt", home.path() / "link.pdf"};
  ServerSession server(home);
  (void)server.call("list_tags");
  std::filesystem::create_hard_link(index, names[3]);
  std::filesystem::create_hard_link(index + "-wal", names[4]);
  for (const std::string& name : names) {
    home.execute("INSERT INTO mcp_exposure VALUES('" + name + "', 1)");
    const ToolAnswer answer = server.call("read_file_content", {{"path", name}});
    EXPECT_EQ(answer.text, "No on-device text could be extracted from this file type.") << name;
    // The log goes with the last connection.
    home.execute("DELETE FROM mcp_exposure");
    EXPECT_TRUE(std::filesystem::exists(index + "-wal")) << name;
  }
  EXPECT_EQ(home.auditRows().size(), 1 + names.size());
}

TEST(OwnFiles, AreThoseThatThisProcessHasOpen) {
  const TestHome home;
  const std::string path = home.path() / "file";
  home.writeFile(path, "text");
  EXPECT_TRUE(openRegularFile(path));
  const Descriptor held(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  EXPECT_FALSE(openRegularFile(path));
  EXPECT_FALSE(openRegularFile("/proc/self/fd/" + std::to_string(held.number())));
}

// As the kernel's log has none, which is a regular file by its kind.
TEST(RegularFile, IsNotWaitedForWhenItHasNoBytesYet) {
  int ends[2] = {-1, -1};
  ASSERT_EQ(pipe2(ends, O_NONBLOCK | O_CLOEXEC), 0);
  const Descriptor writeEnd(ends[1]);
  EXPECT_FALSE(leadingUtf8({Descriptor(ends[0]), 0}, 10));
}

}  // namespace
}  // namespace norvast
