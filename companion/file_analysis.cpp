#include "companion/file_analysis.h"

#include <cstdint>
#include <string_view>
#include <utility>

#include "companion/entities.h"
#include "companion/file_scan.h"
#include "companion/passages.h"
#include "companion/summary.h"
#include "content/mcp_content.h"
#include "platform/unicode.h"
#include "ranking/query_embedding.h"

namespace norvast {
namespace {

// Of a file's text, in characters or bytes as its method counts: about two hundred pages.
constexpr std::int64_t ANALYSED_CHARACTERS = 400'000;

// Of the text in the file's own vector: the more of it, the less each word of it weighs.
constexpr std::size_t LEADING_CHARACTERS = 2000;

std::vector<float> vectorOf(const std::optional<SentenceEmbedding>& sentence,
                            std::string_view text) {
  return embedQuery(sentence, text).value_or(std::vector<float>());
}

// A NUL is no character of a text, and would cut what is stored.
bool isText(const std::string& text) { return text.find('\0') == std::string::npos; }

std::string lines(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) {
    if (!joined.empty()) joined += '\n';
    joined += text;
  }
  return joined;
}

}  // namespace

FileAnalysis analyseFile(const std::string& path,
                         const std::optional<SentenceEmbedding>& sentence) {
  FileAnalysis analysis;
  std::string leading(fileName(path));
  auto content = MCPContent::extract(path, ANALYSED_CHARACTERS);
  if (content && isText(content->text)) {
    const std::string& text = content->text;
    analysis.hasText = true;
    analysis.method = content->method;
    analysis.summary = summarize(text);
    analysis.entities = lines(findEntities(text));
    for (std::string& passage : cutPassages(text)) {
      std::vector<float> vec = vectorOf(sentence, passage);
      if (!vec.empty()) analysis.passages.push_back({std::move(passage), std::move(vec)});
    }
    leading.append("\n").append(analysis.summary).append("\n");
    leading.append(firstClusters(text, LEADING_CHARACTERS));
  }
  analysis.vec = vectorOf(sentence, leading);
  return analysis;
}

}  // namespace norvast
