// Runs the session files of tests/sessions: conversations with the built programs, as text.
//
// A file is a list of cases, each in a new home folder with an empty index. A step is a word and
// its text; a line that begins with blanks goes on with the text before it, and '#' begins a
// comment. The server starts at the first step that needs it. What a step gives is looked at by
// those after.
//
//   case TITLE           begins a case
//   sql STATEMENTS       run in the index; gives their rows, '|' between columns
//   sh COMMAND           run in the home folder by the shell, and must succeed (sh3: must end with
//                        status 3); gives its output. $N is the folder of the index, $SAMPLES and
//                        $DATA those of sample and test files. Root has no rights beyond a user's.
//   call TOOL ARGUMENTS  calls a tool; gives the answer's text
//   send LINE            sends a line as it is; gives the server's next line
//   drop LINE            sends a line that gets no answer, and a good one behind it that does
//   audit ROWS           what the last call left in the audit trail, which may be nothing
//   == TEXT              what was given is that text, and no refusal
//   =! TEXT              it is that refusal
//   => PATTERN           it matches: an object may have more members than its pattern, where null
//                        is for a member that is missing; "..." at the end of an array is for any
//                        more of it, "*" for anything, and a string for the record of that path
//
// The last three may also stand behind a step on its line.
// In each text ${HOME} is the home folder, ${3*ab} is "ababab", ${byte FF} is that byte, and
// ${vector TEXT} is the stored vector of a text as an SQL literal.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <memory>
#include <regex>
#include <string>
#include <vector>

#include "tests/harness/server_session.h"
#include "tests/harness/stored_vector.h"

namespace norvast {
namespace {

using nlohmann::json;

// Runs $COMMAND in $FOLDER, standard error with standard output.
constexpr const char* SHELL_COMMAND =
    "cd \"$FOLDER\"; export HOME=\"$PWD\" N=\"$PWD/Library/Application Support/Norvast\" "
    "SAMPLES='" SAMPLES "' DATA='" TEST_DATA "' PATH=\"" PROGRAMS
    ":$PATH\"; "
    "exec $BOUND sh -e -c \"$COMMAND\" 2>&1 </dev/null";

// A word with its text, and an expectation with its own.
const std::regex STEP(R"((\S+) *([^]*?)(?: (==|=!|=>) ([^]*))?)");

struct Step {
  int line;
  std::string text;
};

struct Case {
  std::string file;
  std::string title;
  std::vector<Step> steps;
};

void PrintTo(const Case& one, std::ostream* to) { *to << one.title; }

std::vector<Case> allCases() {
  std::vector<Case> cases;
  for (const auto& file : std::filesystem::directory_iterator(SESSIONS)) {
    std::ifstream lines(file.path());
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
      ++number;
      if (line.empty() || line[0] == '#') continue;
      if (line.starts_with("case ")) {
        cases.push_back({file.path().string(), line.substr(5), {}});
      } else if (line[0] == ' ') {
        const std::size_t text = std::min(line.find_first_not_of(' '), std::size_t{6});
        cases.back().steps.back().text += '\n' + line.substr(text);
      } else {
        cases.back().steps.push_back({number, line});
      }
    }
  }
  return cases;
}

bool matches(const json& value, const json& pattern) {
  if (pattern == "*") return true;
  if (pattern.is_string() && value.is_object()) return value.value("path", "") == pattern;
  if (pattern.is_object() && value.is_object()) {
    return std::all_of(pattern.items().begin(), pattern.items().end(), [&value](const auto& item) {
      return matches(value.value(item.key(), json()), item.value());
    });
  }
  if (!pattern.is_array() || !value.is_array()) return value == pattern;
  json wanted = pattern;
  json given = value;
  if (!wanted.empty() && wanted.back() == "...") {
    wanted.erase(wanted.size() - 1);
    if (given.size() > wanted.size()) given.get_ref<json::array_t&>().resize(wanted.size());
  }
  return std::equal(given.begin(), given.end(), wanted.begin(), wanted.end(), matches);
}

std::string joined(const std::vector<std::string>& lines) {
  std::string all;
  for (const std::string& line : lines) all += (all.empty() ? "" : "\n") + line;
  return all;
}

class Conversation {
 public:
  Conversation() { home_.createIndex(); }

  void run(const std::string& word, const std::string& written) {
    const std::string text = expanded(written);
    if (word == "sql") {
      given_ = {joined(home_.query(text))};
    } else if (word.starts_with("sh")) {
      const int status = shell(text);
      EXPECT_EQ("sh" + (status == 0 ? "" : std::to_string(status)), word) << given_.text;
    } else if (word == "call") {
      const std::size_t tool = std::min(text.find(' '), text.size());
      audited_ = hasTrail() ? home_.auditRows().size() : 0;
      given_ = server().call(text.substr(0, tool),
                             tool < text.size() ? json::parse(text.substr(tool)) : json::object());
    } else if (word == "send") {
      server().send(text);
      given_ = {server().receive()};
    } else if (word == "drop") {
      server().send(text + '\n' + R"({"id":"after","method":"ping"})");
      EXPECT_EQ(server().receive(), R"({"id":"after","jsonrpc":"2.0","result":{}})");
    } else if (word == "audit") {
      const std::vector<std::string> rows = home_.auditRows();
      EXPECT_EQ(joined({rows.begin() + static_cast<std::ptrdiff_t>(audited_), rows.end()}), text);
    } else if (word == "=>") {
      EXPECT_TRUE(!given_.isError && matches(given_.json(), json::parse(text))) << given_.text;
    } else if (word == "==" || word == "=!") {
      EXPECT_EQ(given_.text, text);
      EXPECT_EQ(given_.isError, word == "=!");
    } else {
      ADD_FAILURE() << "no such step: " << word;
    }
  }

  // The server may have nothing more to say.
  void end() const { EXPECT_EQ(server_ ? server_->end() : "", ""); }

 private:
  ServerSession& server() {
    if (!server_) server_ = std::make_unique<ServerSession>(home_);
    return *server_;
  }

  std::string expanded(std::string text) const {
    std::size_t at = 0;
    while ((at = text.find("${", at)) != std::string::npos) {
      const std::size_t size = text.find('}', at) - at;
      const std::string form = text.substr(at + 2, size - 2);
      const std::string behind = form.substr(form.find_first_of(" *") + 1);
      std::string value;
      if (form == "HOME") value = home_.path().string();
      if (form.starts_with("byte ")) value = static_cast<char>(std::stoi(behind, nullptr, 16));
      if (form.starts_with("vector ")) value = sqlTextBlob(behind);
      for (int count = std::atoi(form.c_str()); count > 0; --count) value += behind;
      text.replace(at, size + 1, value);
      at += value.size();
    }
    return text;
  }

  bool hasTrail() const {
    return is_regular_file(home_.database()) &&
           !home_.query("SELECT 1 FROM sqlite_master WHERE name = 'audit_event'").empty();
  }

  // The exit status.
  int shell(const std::string& command) {
    setenv("COMMAND", command.c_str(), 1);
    setenv("FOLDER", home_.path().c_str(), 1);
    setenv("BOUND", geteuid() == 0 ? "setpriv --bounding-set=-dac_override,-dac_read_search" : "",
           1);
    FILE* pipe = popen(SHELL_COMMAND, "r");
    given_ = {};
    for (int byte = 0; (byte = fgetc(pipe)) != EOF;) given_.text += static_cast<char>(byte);
    if (given_.text.ends_with('\n')) given_.text.pop_back();
    return WEXITSTATUS(pclose(pipe));
  }

  TestHome home_;
  std::unique_ptr<ServerSession> server_;
  ToolAnswer given_;
  std::size_t audited_ = 0;
};

class Session : public testing::TestWithParam<Case> {};

TEST_P(Session, GoesAsWritten) {
  Conversation conversation;
  for (const Step& step : GetParam().steps) {
    const testing::ScopedTrace trace(GetParam().file.c_str(), step.line, step.text);
    std::smatch parts;
    ASSERT_TRUE(std::regex_match(step.text, parts, STEP));
    conversation.run(parts[1], parts[2]);
    if (parts[3].matched) conversation.run(parts[3], parts[4]);
  }
  conversation.end();
}

std::string nameOf(const testing::TestParamInfo<Case>& info) {
  std::string name =
      std::filesystem::path(info.param.file).stem().string() + ' ' + info.param.title;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(, Session, testing::ValuesIn(allCases()), nameOf);

}  // namespace
}  // namespace norvast
