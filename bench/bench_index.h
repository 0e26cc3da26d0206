// Bench index: an index of made-up files in a throw-away home folder, from a fixed seed, written by
// the indexer's own code.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "indexer/indexing/file_analysis.h"
#include "store/connection.h"

namespace norvast {
using namespace indexer;

// Makes a new home folder this process's own and puts an empty index there; removed with its owner.
class BenchIndex {
 public:
  BenchIndex();
  ~BenchIndex();
  BenchIndex(const BenchIndex&) = delete;
  BenchIndex& operator=(const BenchIndex&) = delete;

  // `count` files with an embedding of 512 floats each, nominated with content, and their passages
  // of about 600 characters with a vector each.
  void addEmbeddedFiles(std::int64_t count, std::int64_t passagesAFile);

  // `count` files with summaries of about 400 characters and a few tags, nominated likewise.
  void addSummarisedFiles(std::int64_t count);

  void addSwitchFile(const std::string& name) const;

  // A file of that name and these bytes in the home folder, nominated with content; its path.
  std::string addFile(const std::string& name, const std::string& bytes) const;

 private:
  void addFiles(std::int64_t count, const std::function<FileAnalysis()>& analysis);
  void execute(const std::string& sql) const;
  std::vector<float> randomVector();
  std::string randomText(std::size_t bytes);

  std::filesystem::path home_;
  Connection connection_;
  std::mt19937 random_{1};
};

}  // namespace norvast
