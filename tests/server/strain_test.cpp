// All tools under strain: failing memory, files and locks, damaged indexes, and random worlds in
// which each secret has a mark of its own. See strain.h for how to run more of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "access/sensitive_path.h"
#include "json/json_writer.h"
#include "tests/harness/faulty_sqlite.h"
#include "tests/harness/file_bytes.h"
#include "tests/harness/stored_vector.h"
#include "tests/harness/strain.h"
#include "tests/harness/test_home.h"
#include "tools/call_tool.h"

namespace norvast {
namespace {

// A home whose index this process answers from, as the server does.
class Library {
 public:
  explicit Library(const std::string& sql) {
    (void)setenv("HOME", home.path().c_str(), 1);
    home.createIndex(sql);
  }

  // Nominates a file that there is.
  void addReadableFile() const {
    const std::string path = home.path() / "garden.txt";
    home.writeFile(path, "garden text");
    home.execute("INSERT INTO mcp_exposure VALUES('" + path + "', 1)");
  }

  void open() { store_ = MCPStore::open(); }
  void close() { store_.reset(); }

  // The answer's text behind "ok " or "error ".
  std::string ask(const std::string& tool, const std::string& text) const {
    static const auto SENTENCE = SentenceEmbedding::english();
    const Json::Object arguments{{"path", text}, {"query", text}, {"question", text}};
    const std::string json = writeJson(arguments, JsonStyle::compact).value();
    const Json result = callTool(tool, Arguments(JsonText::parse(json)), store_, SENTENCE);
    const std::string written = writeJson(result, JsonStyle::compact).value();
    const auto answer = nlohmann::json::parse(written);
    return (answer["isError"] ? "error " : "ok ") + answer["content"][0]["text"].get<std::string>();
  }

  const TestHome home;

 private:
  std::optional<MCPStore> store_;
};

// Each with its verb in the audit trail.
constexpr std::pair<const char*, const char*> TOOLS[] = {
    {"list_files", "list"},          {"search_files", "search"},
    {"semantic_search", "semantic"}, {"retrieve_passages", "retrieve"},
    {"get_metadata", "metadata"},    {"get_summary", "summary"},
    {"list_tags", "tags"},           {"traverse_package", "traverse"},
    {"read_file_content", "read"},   {"search_library", "library-search"},
    {"ask_norvast", "ask-norvast"},
};

std::string gardenFiles() {
  const std::string vec = sqlTextBlob("garden report");
  return R"(
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 40)
INSERT INTO file SELECT printf('/n/%02d garden', i), printf('%02d garden', i), '', '', i, i FROM n;
INSERT INTO mcp_exposure SELECT path, 1 FROM file;
INSERT INTO analysis SELECT path, 'a garden report', 'garden', 'text' FROM file;
INSERT INTO embedding SELECT path, )" +
         vec + R"( FROM file;
INSERT INTO chunk SELECT path, 0, 'a garden passage', )" +
         vec + " FROM file;";
}

// What a tool needs as its text to find something.
std::string wanted(const std::string& tool) {
  if (tool == "traverse_package") return "/n";
  if (tool == "read_file_content") return std::string(std::getenv("HOME")) + "/garden.txt";
  return tool.starts_with("get_") ? "/n/01 garden" : "garden";
}

// What a tool may say instead when it could not ask the index.
bool isRefusal(const std::string& tool, const std::string& answer) {
  constexpr std::pair<std::string_view, std::string_view> REFUSALS[] = {
      {"get_metadata", "error Not found or not nominated."},
      {"get_summary", "error No summary, or not nominated."},
      {"read_file_content", "error Denied: not nominated."},
      {"read_file_content", "error Denied: content reads are off for this file (metadata only)."},
      {"ask_norvast",
       "error No matches — semantic retrieval is unavailable and nothing matched the question's "
       "keywords."},
  };
  return std::find(std::begin(REFUSALS), std::end(REFUSALS),
                   std::pair<std::string_view, std::string_view>(tool, answer)) !=
         std::end(REFUSALS);
}

// True when `part` is what failing statements leave of an answer: lists end early, numbers are 0,
// texts empty, and a record lacks what it need not have. Nothing stands there that was not in
// `whole`.
bool isLeftOf(const nlohmann::json& part, const nlohmann::json& whole) {
  if (part == whole) return true;
  if (whole.is_array()) {
    return part.is_array() && part.size() <= whole.size() &&
           std::equal(part.begin(), part.end(), whole.begin(), isLeftOf);
  }
  if (whole.is_object() && part.is_object()) {
    return std::all_of(part.items().begin(), part.items().end(), [&](const auto& member) {
      return whole.contains(member.key()) && isLeftOf(member.value(), whole[member.key()]);
    });
  }
  const bool isNoText = part.is_string() && part.get_ref<const std::string&>().empty();
  return part == 0 || isNoText || part == false;
}

// Whether a tool may answer so when statements failed, where it would have answered `whole`.
bool mayFollowFailure(const std::string& tool, const std::string& answer,
                      const std::string& whole) {
  if (answer == whole || isRefusal(tool, answer)) return true;
  nlohmann::json part = nlohmann::json::parse(answer.substr(answer.find(' ')), nullptr, false);
  nlohmann::json full = nlohmann::json::parse(whole.substr(whole.find(' ')), nullptr, false);
  if (!part.is_structured() || part.type() != full.type()) return false;
  if (part.contains("count") && part["count"] == 0 && tool == "retrieve_passages") {
    full["note"] =
        "No passages — nominate documents (with content access) so they get chunked for retrieval.";
  }
  if (tool == "ask_norvast") {
    for (nlohmann::json& passage : part["passages"]) {
      if (passage["match"] == "semantic" && passage.erase("similarity") == 1) {
        passage["match"] = "name/tags";  // what the words did not find, the meaning may
      }
    }
  }
  if (part.is_array()) return isLeftOf(part, full);
  const auto list =
      std::find_if(part.begin(), part.end(), [](const auto& member) { return member.is_array(); });
  if (part.contains("count") && (list == part.end() || part["count"] != list->size())) return false;
  full["count"] = part["count"];
  // A record of its own may lack what it need not have; all else is there.
  return (tool == "get_metadata" || part.size() == full.size()) && isLeftOf(part, full);
}

class Strain : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    static const bool ONCE = (makeSqliteFaulty(), true);
    (void)ONCE;
  }
};

TEST_F(Strain, OfFailingMemoryAndFilesEndsWithTheFailure) {
  const struct {
    Fault fault;
    long count;
    const char* mode;
  } rows[] = {{Fault::allocation, 1, "DELETE"}, {Fault::allocation, 1, "WAL"},
              {Fault::read, 1, "DELETE"},       {Fault::read, 1, "WAL"},
              {Fault::write, 1, "DELETE"},      {Fault::write, 1, "WAL"},
              {Fault::lock, 1000, "DELETE"},    {Fault::lock, 1000, "WAL"}};
  Library library(gardenFiles());
  library.addReadableFile();
  library.home.writeFile(library.home.norvastFolder() / "mcp.librarymeta", "");
  long variants = 0;
  for (const auto& row : rows) {
    library.close();
    library.home.execute(std::string("PRAGMA journal_mode=") + row.mode);
    const long stride = strideOf(29);
    for (const auto& [tool, verb] : TOOLS) {
      library.open();
      const std::string whole = library.ask(tool, wanted(tool));
      bool fired = true;
      for (long first = seed() % stride; fired; first += stride, ++variants) {
        library.open();
        armFault(row.fault, first, row.count);
        const std::string during = library.ask(tool, wanted(tool));
        fired = disarmFault();
        const std::string after = library.ask(tool, wanted(tool));
        EXPECT_TRUE(row.fault == Fault::write ? during == whole
                                              : mayFollowFailure(tool, during, whole))
            << during << "\ninstead of\n"
            << whole << '\n'
            << tool << " at failure " << first << " of kind " << static_cast<int>(row.fault) << ", "
            << row.mode;
        EXPECT_EQ(after, whole) << tool << " after failure " << first;
      }
    }
  }
  std::cout << variants << " failures\n";
}

TEST_F(Strain, OfDamagedIndexesIsAnswered) {
  constexpr long PAGE_BYTES = 4096;
  Library library(gardenFiles());
  library.addReadableFile();
  library.home.writeFile(library.home.norvastFolder() / "mcp.librarymeta", "");
  const std::string index = library.home.database();
  const std::string whole = fileBytes(index);
  std::mt19937 random(static_cast<unsigned>(seed()));
  const auto any = [&random](std::size_t limit) { return random() % limit; };
  long variants = 0;
  const auto askAll = [&](const std::string& bytes) {
    ++variants;
    library.close();
    for (const char* behind : {"-journal", "-wal", "-shm"}) std::filesystem::remove(index + behind);
    library.home.writeFile(index, bytes);
    library.open();
    for (const auto& [tool, verb] : TOOLS) (void)library.ask(tool, wanted(tool));
  };
  std::string bytes = whole;
  for (long at = seed() % strideOf(199); at < PAGE_BYTES; at += strideOf(199)) {
    bytes = whole;
    char& byte = bytes[static_cast<std::size_t>(at)];
    byte = static_cast<char>(byte ^ static_cast<char>(1 + any(255)));
    askAll(bytes);
  }
  for (long size = 0; size < std::ssize(whole); size += PAGE_BYTES * strideOf(16)) {
    askAll(whole.substr(0, static_cast<std::size_t>(size)));
  }
  for (long count = 20 * strain(); count > 0; --count) {
    bytes = whole;
    for (std::size_t bad = 1 + any(200); bad > 0; --bad) {
      bytes[any(bytes.size())] = static_cast<char>(any(256));
    }
    if (any(2) == 0) bytes.resize(any(bytes.size()));
    askAll(bytes);
  }
  std::cout << variants << " damaged indexes of " << whole.size() / PAGE_BYTES << " pages\n";
}

// One file of a world, and what of it the rules let through.
struct WorldFile {
  std::string path;
  std::string mark;  // in its name, summary, tag, passage and text, behind a letter for which
  bool isNominated = false;
  bool isContentAllowed = false;
};

bool mayShow(const WorldFile& file, char what, const std::string& tool, bool isLibraryOn) {
  if (tool == "search_library" || tool == "ask_norvast") {
    return isLibraryOn && (what == 'n' || what == 's' || what == 't');
  }
  if (!file.isNominated) return false;
  if (tool == "get_metadata" && isSensitive(file.path)) return false;
  if (what == 'x') {
    return tool == "read_file_content" && file.isContentAllowed && !isSensitive(file.path);
  }
  if (what == 'p') return tool == "retrieve_passages" && file.isContentAllowed;
  return true;
}

TEST_F(Strain, OfRandomWorldsShowsNothingThatTheRulesForbid) {
  std::mt19937 random(static_cast<unsigned>(seed()));
  const auto any = [&random](std::size_t limit) { return random() % limit; };
  const std::string vec = sqlTextBlob("garden");
  long shown = 0;
  const long worlds = 15 * strain();
  for (long world = 0; world < worlds; ++world) {
    Library library("");
    std::vector<WorldFile> files;
    std::string sql = "BEGIN;";
    for (std::size_t count = any(6); files.size() < count;) {
      const std::string mark = "q" + std::to_string(100000 + any(900000)) + "q";
      const char* folders[] = {"/docs", "/docs/deep", "/.ssh", "/.config/gcloud", "/100%_'"};
      const std::string path =
          library.home.path().string() + folders[any(5)] + "/n" + mark + ".txt";
      const WorldFile& file = files.emplace_back(WorldFile{path, mark, any(2) == 0, any(2) == 0});
      library.home.writeFile(path, "garden text x" + mark);
      std::string quoted = path;
      for (std::size_t at = quoted.find('\''); at != std::string::npos;
           at = quoted.find('\'', at + 2)) {
        quoted.insert(at, 1, '\'');
      }
      sql += "INSERT INTO file VALUES('" + quoted + "','n" + mark + ".txt','txt','text',1,1);" +
             "INSERT INTO analysis VALUES('" + quoted + "','garden s" + mark + "','t" + mark +
             "','');" + "INSERT INTO embedding VALUES('" + quoted + "'," + vec + ");" +
             "INSERT INTO chunk VALUES('" + quoted + "',0,'garden p" + mark + "'," + vec + ");";
      if (!file.isNominated) continue;
      sql += "INSERT INTO mcp_exposure VALUES('" + quoted + "'," +
             (file.isContentAllowed ? "1);" : "0);");
    }
    library.home.execute(sql + "COMMIT");
    library.open();
    std::vector<std::string> verbs;
    for (int call = 0; call < 12; ++call) {
      const bool isOff = any(8) == 0;
      const bool isLibraryOn = any(2) == 0;
      const auto turn = [&library](const char* switchFile, bool on) {
        const auto path = library.home.norvastFolder() / switchFile;
        on ? library.home.writeFile(path, "qqq") : void(std::filesystem::remove(path));
      };
      turn("mcp.disabled", isOff);
      turn("mcp.librarymeta", isLibraryOn);
      const auto [name, verb] = TOOLS[any(std::size(TOOLS))];
      const std::string tool = name;
      const bool isPath = wanted(tool) != "garden";
      const std::string text = isPath && !files.empty() ? files[any(files.size())].path : "garden";
      const std::string answer = library.ask(tool, text);
      for (const WorldFile& file : files) {
        for (const char what : {'n', 's', 't', 'p', 'x'}) {
          if (answer.find(what + file.mark) == std::string::npos) continue;
          ++shown;
          EXPECT_TRUE(!isOff && mayShow(file, what, tool, isLibraryOn)) << tool << ": " << answer;
        }
      }
      const bool isLibraryTool = tool == "search_library" || tool == "ask_norvast";
      const bool isRefused = isOff || (isLibraryTool && !isLibraryOn);
      if (!isRefused && (tool != "ask_norvast" || answer.find("grounding") != std::string::npos)) {
        verbs.push_back(verb);
      }
    }
    EXPECT_EQ(library.home.query("SELECT verb FROM audit_event ORDER BY id"), verbs) << world;
  }
  EXPECT_GT(shown, worlds);
  std::cout << worlds << " worlds, " << shown << " marks shown\n";
}

}  // namespace
}  // namespace norvast
