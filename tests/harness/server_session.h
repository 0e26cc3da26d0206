// Server session: the built server as a child process, spoken to over its pipes as a client does.
#pragma once

#include <sys/resource.h>
#include <sys/types.h>

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "platform/descriptor.h"
#include "tests/harness/test_home.h"

namespace norvast {

// One tool call's answer.
struct ToolAnswer {
  std::string text;
  bool isError = false;

  nlohmann::json json() const { return nlohmann::json::parse(text); }
};

// The texts under `key` of each record.
std::vector<std::string> values(const nlohmann::json& records, const char* key);

class ServerSession {
 public:
  // Starts the server with that home folder and at most so much address space.
  explicit ServerSession(const TestHome& home, rlim_t mostBytes = RLIM_INFINITY);

  // Ends it when it has not been ended.
  ~ServerSession();

  void send(const std::string& line) const;

  // Sends bytes without a line feed behind them.
  void sendRaw(const std::string& bytes) const;

  // The next line of output without its line feed. Fails the test after 60 s without one.
  std::string receive();

  // Sends a request and takes its answer, which must be the next line.
  nlohmann::json request(const nlohmann::json& message);
  ToolAnswer call(const std::string& tool, const nlohmann::json& arguments = {});

  // Closes the server's input, and gives what it still wrote. Expects exit status 0 and that
  // standard error stayed empty.
  std::string end();

  // Ends it by that signal, whatever it is doing.
  void endBy(int signal);

  // Stops reading the server's output, as a client that went away.
  void closeOutput() { output_ = Descriptor(); }

  pid_t pid() const { return pid_; }

 private:
  Descriptor input_;
  Descriptor output_;
  Descriptor error_;
  pid_t pid_ = -1;
  std::string unread_;
};

}  // namespace norvast
