// The protocol: what is answered, with which line, and what is dropped in silence.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/server_session.h"

namespace norvast {
namespace {

using namespace std::string_literals;
using nlohmann::json;

constexpr const char* PING = R"({"jsonrpc":"2.0","id":"after","method":"ping"})";
constexpr const char* PONG = R"({"id":"after","jsonrpc":"2.0","result":{}})";

TEST(Protocol, AnswersInitialize) {
  const TestHome home;
  ServerSession server(home);
  const json answer = server.request({{"id", 1}, {"method", "initialize"}, {"params", {{"x", 1}}}});
  EXPECT_EQ(answer, json::parse(R"({"jsonrpc": "2.0", "id": 1, "result": {
    "protocolVersion": "2024-11-05",
    "capabilities": {"tools": {"listChanged": false}},
    "serverInfo": {"name": "norvast", "version": "0.7.2"},
    "instructions": "Read-only access to a user-nominated subset of local files. Only nominated files are reachable; sensitive paths are always denied; raw content is gated."}})"));
}

TEST(Protocol, EchoesAnIdAsTheValueThatItWas) {
  const TestHome home;
  ServerSession server(home);
  for (const char* id : {"0", "-0", "1.0", "1e2", "9223372036854775808", "12345678901234567890123",
                         "null", "\"a\\u0000\\/é\"", "[1,[{}]]", "{\"a\":[0.10]}", "true"}) {
    server.send(R"({"method":"ping","id":)"s + id + "}");
    EXPECT_EQ(server.receive(), R"({"id":)"s + id + R"(,"jsonrpc":"2.0","result":{}})");
    server.send(R"({"method":"a/b","id":)"s + id + "}");
    EXPECT_EQ(server.receive(),
              R"({"error":{"code":-32601,"message":"Method not found: a\/b"},"id":)"s + id +
                  R"(,"jsonrpc":"2.0"})");
  }
  server.send(R"({"method":"ping"})");
  EXPECT_EQ(server.receive(), R"({"jsonrpc":"2.0","result":{}})");
}

// Each of these is followed by a good message, whose answer must be the next line of output.
TEST(Protocol, DropsWhatIsNoRequestInSilence) {
  const TestHome home;
  ServerSession server(home);
  const std::string deep = std::string(200'000, '[') + std::string(200'000, ']');
  const std::vector<std::string> lines = {"",
                                          "   \t",
                                          "x",
                                          R"([{"id":1,"method":"ping"}])",
                                          "\"ping\"",
                                          "{}",
                                          R"({"id":1})",
                                          R"({"id":1,"method":7})",
                                          R"({"method":"unknown"})",
                                          R"({"id":1,"method":"initialized"})",
                                          R"({"id":1,"method":"notifications/initialized"})",
                                          R"({"id":1,"method":"ping"} x)",
                                          R"({"id":1,"method":"ping"}{"id":2,"method":"ping"})",
                                          "{\"id\":1,\"method\":\"ping\"}\0"s,
                                          "{\"id\":1,\"method\":\"ping\"}\0 more"s,
                                          "\xEF\xBB\xBF{\"id\":1,\"method\":\"ping\"}",
                                          R"({"id":)" + deep + R"(,"method":"ping"})",
                                          std::string(300'000, ' ')};
  for (const std::string& line : lines) {
    server.send(line);
    server.send(PING);
    EXPECT_EQ(server.receive(), PONG) << line.substr(0, 60);
  }
}

TEST(Protocol, MatchesMethodNamesExactly) {
  const TestHome home;
  ServerSession server(home);
  for (const char* method : {"Ping", " ping", "ping ", "", "tools/List", "resources/list", "é\n"}) {
    const json answer = server.request({{"id", 7}, {"method", method}});
    EXPECT_EQ(answer,
              json({{"jsonrpc", "2.0"},
                    {"id", 7},
                    {"error", {{"code", -32601}, {"message", "Method not found: "s + method}}}}));
  }
}

TEST(Protocol, TakesLinesAsTheyCome) {
  const TestHome home;
  ServerSession server(home);
  server.send(R"({"id":"crlf","method":"ping"})"
              "\r");
  EXPECT_EQ(server.receive(), R"({"id":"crlf","jsonrpc":"2.0","result":{}})");
  server.send("{\"id\":\"\xFFx\xC3\",\"method\":\"ping\"}");
  EXPECT_EQ(server.receive(), "{\"id\":\"\uFFFDx\uFFFD\",\"jsonrpc\":\"2.0\",\"result\":{}}");

  const std::string large(20'000'000, 'a');
  server.send(R"({"id":")" + large + R"(","method":"ping"})");
  EXPECT_EQ(server.receive(), R"({"id":")" + large + R"(","jsonrpc":"2.0","result":{}})");

  for (const char* part :
       {"{\"id\":1,", "\"method\":\"pi", "ng\"}\n{\"id\":2,\"method\":\"ping\"}"}) {
    server.sendRaw(part);
  }
  EXPECT_EQ(server.receive(), R"({"id":1,"jsonrpc":"2.0","result":{}})");
  EXPECT_EQ(server.end(), "{\"id\":2,\"jsonrpc\":\"2.0\",\"result\":{}}\n");
}

#ifndef NORVAST_SANITIZED  // a sanitizer takes terabytes of addresses
// At 300 MB while it is read, at 80 MB when it is parsed.
TEST(Protocol, DropsALineThatTheMemoryDoesNotHold) {
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
TEST(Protocol, GoesOnForAClientThatStoppedReading) {
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

TEST(Protocol, ReachesTheDispatcherWithBrokenParams) {
  const TestHome home;
  home.createIndex();
  ServerSession server(home);
  const json noTool =
      json::parse(R"({"content": [{"type": "text", "text": "Unknown tool: "}], "isError": true})");
  for (const char* params : {R"(null)", R"([])", R"({})", R"({"name":7})", R"("list_tags")"}) {
    const json answer =
        server.request({{"id", 1}, {"method", "tools/call"}, {"params", json::parse(params)}});
    EXPECT_EQ(answer["result"], noTool) << params;
  }
  EXPECT_EQ(server.request({{"id", 1}, {"method", "tools/call"}})["result"], noTool);
  for (const char* name : {"List_Files", "list_files ", "a/b\n", "éx"}) {
    const ToolAnswer answer = server.call(name);
    EXPECT_EQ(answer.text, "Unknown tool: "s + name);
    EXPECT_TRUE(answer.isError);
  }
  EXPECT_EQ(server.call("list_files", json::array({1})).json()["count"], 0);
  EXPECT_EQ(home.auditRows().size(), 1U);
}

}  // namespace
}  // namespace norvast
