#include "companion/file_analysis.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <variant>

#include "analysis/embedded_text.h"
#include "analysis/entities.h"
#include "analysis/passages.h"
#include "analysis/summary.h"
#include "text/ascii.h"
#include "text/file_name.h"

namespace norvast {
namespace {

std::vector<float> vectorOf(const std::optional<SentenceEmbedding>& sentence,
                            std::string_view text) {
  const auto vector = sentence ? sentence->vector(text) : std::nullopt;
  return vector.value_or(std::vector<float>());
}

std::vector<std::string_view> leadingTexts(const std::vector<Passage>& passages) {
  std::vector<std::string_view> texts;
  for (std::size_t at = 0; at < std::min(passages.size(), LEADING_PASSAGES); ++at) {
    texts.emplace_back(passages[at].text);
  }
  return texts;
}

}  // namespace

FileAnalysis analyseFile(const std::string& path,
                         const std::optional<SentenceEmbedding>& sentence) {
  FileAnalysis analysis;
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
      std::vector<float> vec = vectorOf(sentence, embeddedPassage({}, {}, {}, passage));
      if (!vec.empty()) analysis.passages.push_back({std::move(passage), std::move(vec)});
    }
  }
  analysis.vec = vectorOf(
      sentence, embeddedFile(fileName(path), analysis.summary, leadingTexts(analysis.passages)));
  return analysis;
}

}  // namespace norvast
