#include "tests/harness/server_session.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>

namespace norvast {
namespace {

constexpr int PATIENCE_MILLISECONDS = 60000;

struct Pipe {
  Descriptor readEnd;
  Descriptor writeEnd;
};

Pipe makePipe() {
  std::array<int, 2> ends{};
  EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

// What there is to read, or nothing at the end or when patience runs out.
std::string readSome(const Descriptor& from) {
  pollfd wanted{from.number(), POLLIN, 0};
  if (poll(&wanted, 1, PATIENCE_MILLISECONDS) != 1) return {};
  std::array<char, 65536> block{};
  return {block.data(), from.read(block).value_or(0)};
}

std::string readAll(const Descriptor& from) {
  std::string all;
  for (std::string some = readSome(from); !some.empty(); some = readSome(from)) all += some;
  return all;
}

}  // namespace

std::vector<std::string> values(const nlohmann::json& records, const char* key) {
  std::vector<std::string> values;
  for (const nlohmann::json& record : records) values.push_back(record[key]);
  return values;
}

ServerSession::ServerSession(const TestHome& home, rlim_t mostBytes) {
  Pipe in = makePipe();
  Pipe out = makePipe();
  Pipe err = makePipe();
  pid_ = fork();
  if (pid_ == 0) {
    dup2(in.readEnd.number(), STDIN_FILENO);
    dup2(out.writeEnd.number(), STDOUT_FILENO);
    dup2(err.writeEnd.number(), STDERR_FILENO);
    setenv("HOME", home.path().c_str(), 1);
    const rlimit limit{mostBytes, mostBytes};
    setrlimit(RLIMIT_AS, &limit);
    execl(NORVAST_MCP, NORVAST_MCP, nullptr);
    _exit(127);
  }
  input_ = std::move(in.writeEnd);
  output_ = std::move(out.readEnd);
  error_ = std::move(err.readEnd);
}

ServerSession::~ServerSession() {
  if (pid_ > 0) (void)end();
}

void ServerSession::send(const std::string& line) const { sendRaw(line + "\n"); }

void ServerSession::sendRaw(const std::string& bytes) const { EXPECT_TRUE(input_.write(bytes)); }

std::string ServerSession::receive() {
  std::size_t searched = 0;
  std::size_t end = unread_.find('\n');
  while (end == std::string::npos) {
    searched = unread_.size();
    const std::string some = readSome(output_);
    if (some.empty()) {
      ADD_FAILURE() << "the server wrote no line; it had begun: " << unread_;
      return {};
    }
    unread_ += some;
    end = unread_.find('\n', searched);
  }
  std::string line = unread_.substr(0, end);
  unread_.erase(0, end + 1);
  return line;
}

nlohmann::json ServerSession::request(const nlohmann::json& message) {
  send(message.dump());
  return nlohmann::json::parse(receive(), nullptr, false);
}

ToolAnswer ServerSession::call(const std::string& tool, const nlohmann::json& arguments) {
  const nlohmann::json answer = request({{"jsonrpc", "2.0"},
                                         {"id", 1},
                                         {"method", "tools/call"},
                                         {"params", {{"name", tool}, {"arguments", arguments}}}});
  if (!answer.contains("result")) {
    ADD_FAILURE() << "no result: " << answer.dump();
    return {};
  }
  const nlohmann::json& result = answer["result"];
  return {result["content"][0]["text"], result["isError"]};
}

void ServerSession::endBy(int signal) {
  int status = 0;
  EXPECT_EQ(kill(pid_, signal), 0);
  EXPECT_EQ(waitpid(pid_, &status, 0), pid_);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << "wait status " << status;
  pid_ = -1;
}

std::string ServerSession::end() {
  input_ = Descriptor();
  std::string rest = unread_;
  if (output_) rest += readAll(output_);
  EXPECT_EQ(readAll(error_), "");
  int status = 0;
  EXPECT_EQ(waitpid(pid_, &status, 0), pid_);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "wait status " << status;
  pid_ = -1;
  return rest;
}

}  // namespace norvast
