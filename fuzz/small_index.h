// A small index, as the server of a fuzz target sees it.
#pragma once

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "server/dispatch.h"
#include "tests/harness/file_bytes.h"
#include "tests/harness/test_home.h"

namespace norvast {

constexpr const char* TWO_FILES = R"(
INSERT INTO file VALUES('/n/a.txt', 'a.txt', 'txt', 'text', 1, 1), ('/n/b', 'b', '', '', 2, 2);
INSERT INTO mcp_exposure VALUES('/n/a.txt', 1), ('/n/b', 0);
INSERT INTO analysis VALUES('/n/a.txt', 'a summary of letters', 'a', 'text');)";

// Made once: every input asks the same one.
class SmallIndex {
 public:
  static const SmallIndex& instance() {
    static const SmallIndex INDEX;
    return INDEX;
  }

  // The line that the server writes; empty when it writes none.
  std::string answerTo(const JsonText& message) const {
    const Descriptor file(memfd_create("answer", MFD_CLOEXEC));
    Output output(file);
    handle(message, values_, output);
    return fileBytes("/proc/self/fd/" + std::to_string(file.number()));
  }

 private:
  struct Home : TestHome {
    Home() {
      createIndex(TWO_FILES);
      writeFile(norvastFolder() / "mcp.librarymeta", "");
      (void)setenv("HOME", path().c_str(), 1);
    }
  };

  Home home_;
  ProcessValues values_;  // which find the home above
};

}  // namespace norvast
