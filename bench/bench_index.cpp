#include "bench/bench_index.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <span>

#include "store/mcp_store.h"

namespace norvast {
namespace {

constexpr const char* WORDS[] = {"garden", "report",  "river",   "meeting", "invoice", "compost",
                                 "summer", "quarter", "engine",  "letter",  "Zürich",  "recipe",
                                 "the",    "of",      "and",     "in",      "for",     "with",
                                 "water",  "plan",    "chapter", "note",    "village", "music"};

std::string filePath(std::int64_t number) {
  char text[64];
  (void)std::snprintf(text, sizeof text, "/home/user/Documents/folder %03d/file %07lld.txt",
                      static_cast<int>(number % 1000), static_cast<long long>(number));
  return text;
}

}  // namespace

BenchIndex::BenchIndex() {
  std::string pattern = (std::filesystem::temp_directory_path() / "norvast_bench_XXXXXX").string();
  home_ = mkdtemp(pattern.data());
  (void)setenv("HOME", home_.c_str(), 1);
  const std::filesystem::path database = indexDatabasePath().value();
  std::filesystem::create_directories(database.parent_path());
  useSqliteFromOneThread();  // as the server does
  connection_ = Connection::openReadWrite(database);
  execute("PRAGMA journal_mode = WAL");
  execute("PRAGMA synchronous = OFF");
  execute("CREATE TABLE file(path TEXT PRIMARY KEY, name, ext, grp, size, modified)");
  execute("CREATE TABLE mcp_exposure(path TEXT PRIMARY KEY, allow_content INTEGER)");
  execute("CREATE TABLE analysis(path TEXT PRIMARY KEY, summary, entities, method)");
  execute("CREATE TABLE embedding(path TEXT PRIMARY KEY, vec BLOB)");
  execute("CREATE TABLE chunk(path TEXT, ord INTEGER, text TEXT, vec BLOB, PRIMARY KEY(path,ord))");
  execute("CREATE TABLE audit_event(id INTEGER PRIMARY KEY, ts, verb, object, result, severity)");
}

BenchIndex::~BenchIndex() {
  std::error_code ignored;
  std::filesystem::remove_all(home_, ignored);
}

void BenchIndex::execute(const std::string& sql) const {
  if (!Statement(connection_, sql).run()) std::fprintf(stderr, "failed: %s\n", sql.c_str());
}

std::string BenchIndex::addFile(const std::string& name, const std::string& bytes) const {
  std::string path = home_ / name;
  std::ofstream(path, std::ios::binary) << bytes;
  Statement statement(connection_, "INSERT INTO mcp_exposure VALUES(?, 1)", std::span(&path, 1));
  if (!statement.run()) std::fprintf(stderr, "failed: nominate %s\n", path.c_str());
  return path;
}

std::vector<float> BenchIndex::randomVector() {
  std::normal_distribution<float> normal;
  std::vector<float> values(512);
  for (float& value : values) value = normal(random_);
  return values;
}

std::string BenchIndex::randomText(std::size_t bytes) {
  std::string text;
  while (text.size() < bytes) text.append(WORDS[random_() % std::size(WORDS)]).append(" ");
  return text;
}

void BenchIndex::addEmbeddedFiles(std::int64_t count, std::int64_t passagesAFile) {
  execute("BEGIN");
  {
    Statement nomination(connection_, "INSERT INTO mcp_exposure VALUES(?,1)");
    Statement embedding(connection_, "INSERT INTO embedding VALUES(?,?)");
    Statement chunk(connection_, "INSERT INTO chunk VALUES(?,?,?,?)");
    for (std::int64_t number = 0; number < count; ++number) {
      const std::string path = filePath(number);
      nomination.bind(1, path);
      (void)nomination.run();
      nomination.reset();
      embedding.bind(1, path);
      const std::vector<float> fileVector = randomVector();
      embedding.bind(2, std::as_bytes(std::span(fileVector)));
      (void)embedding.run();
      embedding.reset();
      for (std::int64_t ord = 0; ord < passagesAFile; ++ord) {
        chunk.bind(1, path);
        chunk.bind(2, ord);
        chunk.bind(3, randomText(600));
        const std::vector<float> passageVector = randomVector();
        chunk.bind(4, std::as_bytes(std::span(passageVector)));
        (void)chunk.run();
        chunk.reset();
      }
    }
  }
  execute("COMMIT");
  execute("PRAGMA wal_checkpoint(TRUNCATE)");
}

void BenchIndex::addSummarisedFiles(std::int64_t count) {
  execute("BEGIN");
  {
    Statement file(connection_, "INSERT INTO file VALUES(?,?,'txt','Documents',1234,?)");
    Statement analysis(connection_, "INSERT INTO analysis VALUES(?,?,?,'text')");
    for (std::int64_t number = 0; number < count; ++number) {
      const std::string path = filePath(number);
      file.bind(1, path);
      file.bind(2, path.substr(path.rfind('/') + 1));
      file.bind(3, std::int64_t{1700000000} + number);
      (void)file.run();
      file.reset();
      analysis.bind(1, path);
      analysis.bind(2, randomText(400));
      analysis.bind(3, "Maria Keller\n" + randomText(10));
      (void)analysis.run();
      analysis.reset();
    }
  }
  execute("COMMIT");
  execute("PRAGMA wal_checkpoint(TRUNCATE)");
}

void BenchIndex::addSwitchFile(const std::string& name) const {
  std::ofstream(home_ / "Library/Application Support/Norvast" / name) << "";
}

}  // namespace norvast
