// A model beside the index: installed, swapped, spoilt and removed, with a server that goes on.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/harness/index_command.h"
#include "tests/harness/server_session.h"
#include "tests/harness/static_model_files.h"
#include "tests/harness/test_home.h"

namespace norvast {
namespace {

class InstalledModel : public testing::Test {
 protected:
  void SetUp() override {
    home.writeFile(notes / "one.txt", "The red car stands in a shed.");
    home.writeFile(notes / "two.txt", "A pump waters that green garden.");
    home.writeFile(notes / "three.md", "# Orchard\n\nApples, pears and a ladder.\n");
    EXPECT_EQ(add().status, 0);
  }

  Outcome add() const { return index(home, "add --nominate content " + notes.string()); }

  void install(const std::string& table) const {
    home.writeFile(folder / "tokenizer.json", tinyTokenizer());
    home.writeFile(folder / "model.safetensors", table);
  }

  std::string scheme() const {
    return value("SELECT value FROM setting WHERE name LIKE '%scheme'");
  }
  std::string value(const std::string& sql) const { return home.query(sql).at(0); }
  std::vector<std::string> vectors() const {
    return home.query("SELECT hex(vec) FROM embedding UNION ALL SELECT hex(vec) FROM chunk");
  }

  static std::string first(ServerSession& server, const std::string& query) {
    const auto answer = server.call("retrieve_passages", {{"query", query}}).json();
    return std::filesystem::path(values(answer["passages"], "path").at(0)).filename();
  }

  // All that is found by meaning, with the similarities.
  static std::string answers(ServerSession& server) {
    std::string texts;
    for (const char* query : {"red car", "the garden"}) {
      texts += server.call("retrieve_passages", {{"query", query}}).text +
               server.call("semantic_search", {{"query", query}}).text +
               server.call("ask_norvast", {{"question", query}}).text;
    }
    return texts;
  }

  TestHome home;
  std::filesystem::path notes = home.path() / "notes";
  std::filesystem::path folder = home.norvastFolder() / "model";
};

TEST_F(InstalledModel, IsUsedFromTheNextRunOn) {
  EXPECT_EQ(scheme(), "norvast-words-2");
  const auto ofWords = vectors();
  ServerSession server(home);
  EXPECT_EQ(first(server, "red car"), "one.txt");

  // No file is opened for it: this one is other than the index knows, and stays so.
  const auto written = std::filesystem::last_write_time(notes / "one.txt");
  home.writeFile(notes / "one.txt", "The red cat stands in a shed.");
  std::filesystem::last_write_time(notes / "one.txt", written);
  install(tinyTable());
  const Outcome again = add();
  EXPECT_EQ(again.status, 0);
  EXPECT_NE(again.output.find("embedded again"), std::string::npos) << again.output;
  EXPECT_EQ(add().output.find("embedded again"), std::string::npos);
  const std::string withModel = scheme();
  EXPECT_TRUE(withModel.starts_with("norvast-words-2+static-1:") && withModel.ends_with(":2"));
  EXPECT_NE(index(home, "status").output.find(withModel), std::string::npos);
  EXPECT_EQ(value("SELECT MIN(length(vec)) || MAX(length(vec)) FROM chunk"), "20562056");
  EXPECT_EQ(first(server, "auto"), "one.txt");

  // The other way round now.
  install(tinyTable(-1));
  EXPECT_EQ(first(server, "auto"), "one.txt");  // not before the index is made of it
  EXPECT_EQ(add().status, 0);
  EXPECT_NE(scheme(), withModel);
  EXPECT_NE(first(server, "auto"), "one.txt");

  // With another one or none, the words alone decide, to the last digit.
  home.writeFile(home.norvastFolder() / "mcp.librarymeta", "");
  install(tinyTable(2));
  ServerSession other(home);
  const std::string withOther = answers(other);
  std::filesystem::remove_all(folder);
  ServerSession without(home);
  const std::string withNone = answers(without);
  EXPECT_EQ(add().status, 0);
  EXPECT_EQ(scheme(), "norvast-words-2");
  EXPECT_EQ(vectors(), ofWords);
  const std::string ofWordsAlone = answers(without);
  EXPECT_EQ(withOther, ofWordsAlone);
  EXPECT_EQ(withNone, ofWordsAlone);
}

TEST_F(InstalledModel, IsPassedOverWhenItIsSpoilt) {
  const auto ofWords = vectors();
  const struct {
    std::uintmax_t bytes;
    const char* reason;
  } cases[] = {{60, "damaged"}, {161 << 20, "160 MiB"}};
  for (const auto& spoilt : cases) {
    install(tinyTable());
    std::filesystem::resize_file(folder / "model.safetensors", spoilt.bytes);
    const Outcome outcome = add();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.output.find("The model beside the index is not used."), std::string::npos);
    EXPECT_NE(outcome.output.find(spoilt.reason), std::string::npos) << outcome.output;
    EXPECT_EQ(vectors(), ofWords);
  }
}

TEST_F(InstalledModel, IsTakenUpWhereAnInterruptionLeftIt) {
  install(tinyTable());
  EXPECT_EQ(add().status, 0);
  const std::string path = (notes / "one.txt").string();
  home.execute("INSERT INTO setting VALUES('embedding_target', '" + scheme() +
               "'), ('embedding_reached', '" + path +
               "');"
               "UPDATE setting SET value = 'old' WHERE name = 'embedding_scheme';"
               "UPDATE embedding SET vec = x'00'");
  EXPECT_EQ(add().status, 0);
  EXPECT_EQ(home.query("SELECT length(vec) FROM embedding ORDER BY path"),
            (std::vector<std::string>{"1", "2056", "2056"}));
  EXPECT_EQ(value("SELECT COUNT(*) FROM setting WHERE name LIKE 'embedding%'"), "1");
}

}  // namespace
}  // namespace norvast
