// Test home: a throw-away home folder with an index database and switch files in it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace norvast {

// A new folder under the system's temporary one, removed with its owner.
class TestHome {
 public:
  TestHome();
  ~TestHome();
  TestHome(const TestHome&) = delete;
  TestHome& operator=(const TestHome&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path norvastFolder() const;
  std::filesystem::path database() const;

  void writeFile(const std::filesystem::path& path, const std::string& bytes) const;

  // Creates the index with all its tables, empty, then runs `sql` in it.
  void createIndex(const std::string& sql = "") const;

  // Runs `sql` in the index, which must succeed.
  void execute(const std::string& sql) const;

  // The rows of a query, their columns joined with '|', NULL as nothing.
  std::vector<std::string> query(const std::string& sql) const;

  // The audit trail without its time stamps: verb|object|result|severity.
  std::vector<std::string> auditRows() const;

 private:
  std::filesystem::path path_;
};

}  // namespace norvast
