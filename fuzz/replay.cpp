// Runs a fuzz target over files and folders of files, where there is no fuzzer.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "tests/harness/file_bytes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

int main(int count, char** names) {
  std::vector<std::filesystem::path> files;
  for (int index = 1; index < count; ++index) {
    const std::filesystem::path path = names[index];
    if (!std::filesystem::is_directory(path)) files.push_back(path);
    if (!std::filesystem::is_directory(path)) continue;
    for (const auto& entry : std::filesystem::directory_iterator(path)) files.push_back(entry);
  }
  for (const std::filesystem::path& file : files) {
    const std::string bytes = norvast::fileBytes(file);
    (void)LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  }
  return files.empty() ? 1 : 0;
}
