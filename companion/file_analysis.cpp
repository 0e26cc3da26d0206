#include "companion/file_analysis.h"

#include <string_view>
#include <utility>
#include <variant>

#include "analysis/entities.h"
#include "analysis/passages.h"
#include "analysis/summary.h"
#include "embedding/query_embedding.h"
#include "text/ascii.h"
#include "text/file_name.h"
#include "text/unicode.h"

namespace norvast {
namespace {

// Of the text in the file's own vector: the more of it, the less each word of it weighs.
constexpr std::size_t LEADING_CHARACTERS = 2000;

std::vector<float> vectorOf(const std::optional<SentenceEmbedding>& sentence,
                            std::string_view text) {
  return embedQuery(sentence, text).value_or(std::vector<float>());
}

}  // namespace

FileAnalysis analyseFile(const std::string& path,
                         const std::optional<SentenceEmbedding>& sentence) {
  FileAnalysis analysis;
  std::string leading(fileName(path));
  const auto read = readDocument(path);
  if (const auto* failure = std::get_if<ReadFailure>(&read)) {
    analysis.failure = *failure;
  } else {
    const Document& document = std::get<Document>(read);
    const std::string text = plainText(document);
    analysis.method = document.method;
    analysis.summary = summarize(text);
    analysis.entities = joined(findEntities(text), "\n");
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
