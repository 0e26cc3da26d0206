// The indexer beside a database that another program writes.
#include <gtest/gtest.h>

#include <string>

#include "store/connection.h"
#include "store/statement.h"
#include "tests/harness/file_bytes.h"
#include "tests/harness/index_command.h"
#include "tests/harness/test_home.h"

namespace norvast {
namespace {

TEST(IndexAdd, LeavesTheLogOfAnotherDatabaseAsItIs) {
  const TestHome home;
  home.execute("PRAGMA journal_mode = WAL; CREATE TABLE file(path)");
  // As a program leaves it that was killed before its log was worked off.
  const TestHome other;
  const auto log = home.database().string() + "-wal";
  const Connection writer = Connection::openReadWrite(home.database());
  ASSERT_TRUE(Statement(writer, "INSERT INTO file VALUES('/a')").run());
  other.writeFile(other.database(), fileBytes(home.database()));
  other.writeFile(other.database().string() + "-wal", fileBytes(log));

  for (const char* command : {"add .", "nominate .", "remove .", "status", "audit"}) {
    (void)index(other, command);
    EXPECT_EQ(fileBytes(other.database()), fileBytes(home.database())) << command;
    EXPECT_EQ(fileBytes(other.database().string() + "-wal"), fileBytes(log)) << command;
  }
}

}  // namespace
}  // namespace norvast
