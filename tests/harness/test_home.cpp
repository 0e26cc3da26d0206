#include "tests/harness/test_home.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdlib>
#include <fstream>
#include <memory>

namespace norvast {
namespace {

constexpr const char* SCHEMA = R"(
CREATE TABLE file(path TEXT PRIMARY KEY, name TEXT, ext TEXT, grp TEXT, size INTEGER, modified INTEGER);
CREATE TABLE mcp_exposure(path TEXT, allow_content INTEGER);
CREATE TABLE analysis(path TEXT, summary TEXT, entities TEXT, method TEXT);
CREATE TABLE embedding(path TEXT, vec BLOB);
CREATE TABLE chunk(path TEXT, ord INTEGER, text TEXT, vec BLOB);
CREATE TABLE audit_event(id INTEGER PRIMARY KEY, ts INTEGER, verb TEXT, object TEXT, result TEXT, severity TEXT);
)";

struct Close {
  void operator()(sqlite3* handle) const { sqlite3_close(handle); }
};

std::vector<std::string> run(const std::filesystem::path& database, const std::string& sql) {
  sqlite3* opened = nullptr;
  EXPECT_EQ(sqlite3_open(database.c_str(), &opened), SQLITE_OK) << database;
  const std::unique_ptr<sqlite3, Close> handle(opened);
  std::vector<std::string> rows;
  const auto collect = [](void* into, int columns, char** values, char** /*names*/) {
    std::string row;
    for (int column = 0; column < columns; ++column) {
      if (column > 0) row += '|';
      row += values[column] == nullptr ? "" : values[column];
    }
    static_cast<std::vector<std::string>*>(into)->push_back(row);
    return 0;
  };
  EXPECT_EQ(sqlite3_exec(handle.get(), sql.c_str(), collect, &rows, nullptr), SQLITE_OK)
      << sqlite3_errmsg(handle.get()) << " in " << sql;
  return rows;
}

}  // namespace

TestHome::TestHome() {
  std::string pattern = (std::filesystem::temp_directory_path() / "norvast_test_XXXXXX").string();
  path_ = mkdtemp(pattern.data());
  std::filesystem::create_directories(norvastFolder());
}

TestHome::~TestHome() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path TestHome::norvastFolder() const {
  return path_ / "Library" / "Application Support" / "Norvast";
}

std::filesystem::path TestHome::database() const { return norvastFolder() / "norvast.sqlite"; }

void TestHome::writeFile(const std::filesystem::path& path, const std::string& bytes) const {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
}

void TestHome::createIndex(const std::string& sql) const { execute(SCHEMA + sql); }

void TestHome::execute(const std::string& sql) const { run(database(), sql); }

std::vector<std::string> TestHome::query(const std::string& sql) const {
  return run(database(), sql);
}

std::vector<std::string> TestHome::auditRows() const {
  return query("SELECT verb, object, result, severity FROM audit_event ORDER BY id");
}

}  // namespace norvast
