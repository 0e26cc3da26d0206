#include "bench/bench_index.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <span>
#include <utility>
#include <variant>

#include "indexer/index/index_database.h"
#include "indexer/indexing/index_writer.h"
#include "store/statement.h"
#include "store/transaction.h"

namespace norvast {
using namespace indexer;

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
  useSqliteFromOneThread();  // as the server does
  auto index = openIndex();
  if (const auto* why = std::get_if<std::string>(&index)) {
    std::fprintf(stderr, "%s\n", why->c_str());
    std::exit(1);
  }
  connection_ = std::move(std::get<Connection>(index));
  execute("PRAGMA synchronous = OFF");
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

void BenchIndex::addFiles(std::int64_t count, const std::function<FileAnalysis()>& analysis) {
  Transaction transaction(connection_);
  IndexWriter writer(connection_);
  Statement nomination(connection_, "INSERT INTO mcp_exposure(path,allow_content) VALUES(?,1)");
  bool isWritten = true;
  for (std::int64_t number = 0; number < count; ++number) {
    const ScannedFile file{filePath(number), 1234, std::int64_t{1700000000} + number, 0};
    isWritten = isWritten && writer.replace(file, analysis());
    nomination.bind(1, file.path);
    isWritten = isWritten && nomination.run();
    nomination.reset();
  }
  if (!isWritten || !transaction.commit()) std::fprintf(stderr, "failed: fill the index\n");
  execute("PRAGMA wal_checkpoint(TRUNCATE)");
}

void BenchIndex::addEmbeddedFiles(std::int64_t count, std::int64_t passagesAFile) {
  addFiles(count, [&] {
    FileAnalysis analysis;
    analysis.vec = randomVector();
    for (std::int64_t ord = 0; ord < passagesAFile; ++ord) {
      std::string text = randomText(600);
      analysis.passages.push_back({std::move(text), {}, randomVector()});
    }
    return analysis;
  });
}

void BenchIndex::addSummarisedFiles(std::int64_t count) {
  addFiles(count, [&] {
    FileAnalysis analysis;
    analysis.summary = randomText(400);
    analysis.entities = "Maria Keller\n" + randomText(10);
    analysis.method = "text";
    return analysis;
  });
}

void BenchIndex::addSwitchFile(const std::string& name) const {
  std::ofstream(home_ / "Library/Application Support/Norvast" / name) << "";
}

}  // namespace norvast
