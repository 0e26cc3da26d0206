#include "content/isolated_extraction.h"

#include <chrono>

#include "platform/child_process.h"
#include "platform/installed_program.h"
#include "text/unicode.h"
#include "text/utf8.h"

namespace norvast {
namespace {

// Clients give up after 60 s.
constexpr std::chrono::seconds DEADLINE{30};

// No text of 60,000 characters that a person wrote takes 64 bytes a character.
constexpr std::size_t MOST_BYTES = std::size_t{60'000} * 64;

// The recogniser's threads wait for each other most of the time: on two cores, a dense page took
// 14 s with all of them and 3 s with one. Memory is set aside for each thread and counts against
// the program's limit even when it is not used.
const std::vector<std::string> ENVIRONMENT = {"OMP_THREAD_LIMIT=1", "MALLOC_ARENA_MAX=1"};

std::optional<std::string> isolatedText(const char* kind, const RegularFile& file,
                                        std::size_t limitClusters) {
  const auto program = installedProgram("norvast_extract");
  if (!program) return std::nullopt;
  auto text =
      outputOf({*program, {kind, std::to_string(limitClusters)}, ENVIRONMENT, DEADLINE, MOST_BYTES},
               file.descriptor);
  if (!text || text->empty() || validUtf8Length(*text) != text->size()) return std::nullopt;
  text->resize(firstClusters(*text, limitClusters).size());
  return text;
}

}  // namespace

std::optional<std::string> isolatedPdfText(const RegularFile& file, std::size_t limitClusters) {
  return isolatedText("pdf", file, limitClusters);
}

std::optional<std::string> isolatedImageText(const RegularFile& file, std::size_t limitClusters) {
  return isolatedText("image", file, limitClusters);
}

}  // namespace norvast
