// Views as JSON: every value whole, whatever a name or a text is made of.
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <nlohmann/json.hpp>
#include <string>
#include <thread>

#include "tests/harness/index_command.h"
#include "tests/harness/test_home.h"

namespace norvast {
namespace {

using Value = nlohmann::json;

class JsonViews : public testing::Test {
 protected:
  JsonViews() {
    home.writeFile(docs + name, "A text with \033[31m in it.\n");
    home.writeFile(docs + "b.bin", std::string("\0\1\2", 3));
    (void)index(home, "add --exclude 'x*' --nominate content docs");
    (void)index(home, "withdraw docs/b.bin");
  }

  // What a command prints, which must be JSON that steers no terminal.
  Value views(const std::string& command) const {
    const Outcome outcome = index(home, command + " --json");
    EXPECT_EQ(outcome.status, 0) << outcome.output;
    for (const char* hidden : {"\033", "\u202e", "\U000e0041"}) {
      EXPECT_EQ(outcome.output.find(hidden), std::string::npos) << command;
    }
    return Value::parse(outcome.output, nullptr, false);
  }

  TestHome home;
  std::string folder = home.path().string() + "/docs";
  std::string docs = folder + "/";
  std::string name = "a\033[2J\u202e\U000e0041\"\\.md";
};

TEST_F(JsonViews, HoldWhatIsDecidedAndKnown) {
  EXPECT_EQ(views("rules"),
            Value({{"roots", {{{"path", folder}, {"exclusions", {"x*"}}, {"gitignore", true}}}},
                   {"rules",
                    {{{"path", folder}, {"kind", "content"}, {"files", 1}},
                     {{"path", docs + "b.bin"}, {"kind", "withheld"}, {"files", 1}}}},
                   {"files_without_rule", 0}}));
  EXPECT_EQ(views("status --without-text"),
            Value({{{"path", docs + "b.bin"}, {"reason", "noReader"}}}));

  const Outcome nowhere = index(home, "status --without-text /nowhere");
  EXPECT_EQ(nowhere.status, 1);
  EXPECT_EQ(nowhere.output, "norvast_index: /nowhere: nothing is indexed there\n");

  const Value status = views("status");
  EXPECT_EQ(status["index"], home.database().string());
  EXPECT_EQ(status["files_by_rule"],
            Value({{"content", 1}, {"metadata", 0}, {"withheld", 1}, {"none", 0}}));
  EXPECT_EQ(status["watching_process"], nullptr);
  EXPECT_EQ(status["ai_access"], true);
  EXPECT_EQ(status["decoder_lock"], "whole");

  const Value shown = views("show docs/a* docs/b.bin");
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_EQ(shown[0]["path"], docs + name);
  EXPECT_EQ(shown[0]["rule"], Value({{"path", folder}, {"kind", "content"}}));
  EXPECT_EQ(shown[0]["clients_see"], "content");
  EXPECT_EQ(shown[0]["passages"],
            Value({{{"heading", ""}, {"text", "A text with \033[31m in it."}}}));
  EXPECT_EQ(shown[1]["no_text"], "noReader");
  EXPECT_EQ(shown[1]["clients_see"], "nothing");
}

TEST_F(JsonViews, GiveEachEventALineOfItsOwn) {
  home.execute(
      "INSERT INTO audit_event(ts,verb,object,result,severity) VALUES(0,'read','/a' || char(10) || "
      "char(0x202e),'denied','deny'),(1700000000,'query','\u00e4','2 hits','ok')");
  const Outcome outcome = index(home, "audit --json --last 2");
  const std::size_t end = outcome.output.find('\n');
  EXPECT_EQ(Value::parse(outcome.output.substr(0, end)), Value({{"time", "1970-01-01T00:00:00Z"},
                                                                {"verb", "read"},
                                                                {"object", "/a\n\u202e"},
                                                                {"result", "denied"},
                                                                {"severity", "deny"}}));
  EXPECT_EQ(Value::parse(outcome.output.substr(end + 1))["object"], "\u00e4");
}

TEST_F(JsonViews, OfEventsToComeEndWithTheTrail) {
  auto following =
      std::async(std::launch::async, [this] { return index(home, "audit --json --follow"); });
  std::this_thread::sleep_for(std::chrono::milliseconds(500));
  home.execute("ALTER TABLE audit_event RENAME TO gone");
  const Outcome outcome = following.get();
  EXPECT_EQ(outcome.status, 1) << outcome.output;
  EXPECT_NE(outcome.output.find("cannot be read"), std::string::npos) << outcome.output;
}

// A path that is no UTF-8 has no way into JSON but a mark in its place.
TEST_F(JsonViews, MarkWhatIsNotUtf8) {
  const std::string home2 = "HOME=\"$(printf '" + home.path().string() + "/h\\377')\"";
  const Outcome outcome =
      index(home, "--version; export " + home2 +
                      "; '" NORVAST_INDEX "' add docs --quiet; '" NORVAST_INDEX "' status --json");
  const Value status = Value::parse(outcome.output.substr(outcome.output.find('{')));
  EXPECT_NE(status["index"].get<std::string>().find("/h\ufffd/"), std::string::npos);
}

}  // namespace
}  // namespace norvast
