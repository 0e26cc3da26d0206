#include "text/content_terms.h"

#include <cstddef>
#include <unordered_set>
#include <utility>

#include "text/unicode.h"
#include "text/utf8.h"

namespace norvast {
namespace {

constexpr std::size_t FEWEST_CLUSTERS = 3;

// Function words, and words by which one asks rather than of what.
const std::unordered_set<std::string_view>& stopWords() {
  static const std::unordered_set<std::string_view> WORDS = {
      "the",       "and",       "for",     "are",       "was",       "were",   "this",
      "that",      "these",     "those",   "who",       "whos",      "whose",  "what",
      "whats",     "when",      "where",   "which",     "why",       "how",    "can",
      "could",     "would",     "should",  "will",      "shall",     "may",    "might",
      "must",      "does",      "did",     "doing",     "done",      "have",   "has",
      "had",       "having",    "there",   "here",      "tell",      "show",   "find",
      "give",      "list",      "know",    "about",     "regarding", "with",   "from",
      "into",      "please",    "some",    "any",       "all",       "not",    "you",
      "your",      "yours",     "mine",    "our",       "ours",      "their",  "them",
      "they",      "file",      "files",   "document",  "documents", "info",   "information",
      "summarize", "summarise", "summary", "summaries", "overview",  "digest",
  };
  return WORDS;
}

}  // namespace

std::vector<std::string> contentTerms(std::string_view text) {
  const std::string folded = foldDiacritics(lowerCase(text));
  std::vector<std::string> terms;
  std::string run;
  std::size_t clusters = 0;
  const auto endRun = [&] {
    if (clusters >= FEWEST_CLUSTERS && !stopWords().contains(run)) terms.push_back(run);
    run.clear();
    clusters = 0;
  };
  const auto take = [&](std::string_view cluster) {
    if (!isLetterOrNumber(cluster)) return endRun();
    run += cluster;
    ++clusters;
  };
  if (isAscii(folded)) {  // then each letter and digit is a cluster
    for (std::size_t at = 0; at < folded.size(); ++at) take({&folded[at], 1});
  } else {
    forEachCluster(folded, take);
  }
  endRun();
  return terms;
}

}  // namespace norvast
