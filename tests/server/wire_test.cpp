// The wire under strain: parts of lines, lines beyond memory, a client that went away.
#include <gtest/gtest.h>

#include <string>

#include "tests/harness/server_session.h"

namespace norvast {
namespace {

constexpr const char* PING = R"({"id":1,"method":"ping"})";
constexpr const char* PONG = R"({"id":1,"jsonrpc":"2.0","result":{}})";

TEST(Wire, TakesLinesInPartsAndTheLastWithoutItsEnd) {
  const TestHome home;
  ServerSession server(home);
  for (const char* part :
       {"{\"id\":1,", "\"method\":\"pi", "ng\"}\n{\"id\":2,\"method\":\"ping\"}"}) {
    server.sendRaw(part);
  }
  EXPECT_EQ(server.receive(), PONG);
  EXPECT_EQ(server.end(), "{\"id\":2,\"jsonrpc\":\"2.0\",\"result\":{}}\n");
}

#ifndef NORVAST_SANITIZED  // a sanitizer takes terabytes of addresses
// At 300 MB while it is read, at 80 MB when it is parsed.
TEST(Wire, DropsALineThatTheMemoryDoesNotHold) {
  const TestHome home;
  ServerSession server(home, rlim_t{250} << 20);
  for (const std::size_t megabytes : {300U, 80U}) {
    server.sendRaw(R"({"id":")");
    for (std::size_t count = 0; count < megabytes; ++count) {
      server.sendRaw(std::string(std::size_t{1} << 20, 'a'));
    }
    server.send(R"(","method":"ping"})");
    server.send(PING);
    EXPECT_EQ(server.receive(), PONG) << megabytes;
  }
  EXPECT_EQ(server.end(), "");
}
#endif

// The answers have no reader, but the calls are carried out and the server ends as ever.
TEST(Wire, GoesOnForAClientThatStoppedReading) {
  const TestHome home;
  home.createIndex();
  ServerSession server(home);
  server.send(PING);
  EXPECT_EQ(server.receive(), PONG);
  server.closeOutput();
  for (int count = 0; count < 3; ++count) {
    server.send(R"({"id":1,"method":"tools/call","params":{"name":"list_tags"}})");
  }
  EXPECT_EQ(server.end(), "");
  EXPECT_EQ(home.auditRows().size(), 3U);
}

}  // namespace
}  // namespace norvast
