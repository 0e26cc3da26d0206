#include "tools/library_answer_tool.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "access/audit_trail.h"
#include "access/switch_files.h"
#include "ranking/similarity_ranking.h"
#include "store/library_queries.h"
#include "store/nominated_files.h"
#include "store/term_search.h"
#include "store/vector_rows.h"
#include "text/content_terms.h"
#include "text/unicode.h"
#include "tools/tool_result.h"

namespace norvast {
namespace {

constexpr std::int64_t MOST_PASSAGES = 30;
constexpr std::int64_t FILES_A_TERM = 50;

struct Picked {
  std::string path;
  std::optional<float> similarity;  // of a file found by meaning
};

struct KeywordHits {
  std::string path;
  std::string canonicalPath;  // the order among equal counts
  std::int64_t count = 0;
};

// How often each file is found when every term is searched; a term that occurs again counts again.
std::vector<KeywordHits> countHits(const MCPStore& store, const std::string& question) {
  std::map<std::string, std::int64_t> occurrences;
  for (std::string& term : contentTerms(question)) ++occurrences[std::move(term)];
  std::vector<std::string> terms;
  terms.reserve(occurrences.size());
  for (const auto& occurrence : occurrences) terms.push_back(occurrence.first);

  std::unordered_map<std::string, std::int64_t> counts;
  searchTerms(store, terms, FILES_A_TERM, [&](std::size_t term, const std::string& path) {
    counts[path] += occurrences[terms[term]];
  });

  std::vector<KeywordHits> hits;
  hits.reserve(counts.size());
  for (const auto& [path, count] : counts) hits.push_back({path, canonicalForm(path), count});
  return hits;
}

std::vector<Picked> pickByKeywords(const MCPStore& store, const std::string& question,
                                   std::size_t limit) {
  std::vector<KeywordHits> hits = countHits(store, question);
  std::sort(hits.begin(), hits.end(), [](const KeywordHits& left, const KeywordHits& right) {
    if (left.count != right.count) return left.count > right.count;
    if (left.canonicalPath != right.canonicalPath) return left.canonicalPath < right.canonicalPath;
    return left.path < right.path;
  });
  if (hits.size() > limit) hits.resize(limit);

  std::vector<Picked> picked;
  picked.reserve(hits.size());
  for (KeywordHits& hit : hits) picked.push_back({std::move(hit.path), std::nullopt});
  return picked;
}

// Fills the places that are left with the files nearest in meaning that are not picked yet.
void pickByMeaning(const MCPStore& store, SentenceQuery query, std::size_t limit,
                   std::vector<Picked>& picked) {
  std::unordered_set<std::string> seen;
  for (const Picked& pick : picked) seen.insert(pick.path);

  SimilarityRanking<EmbeddingRow> ranking(std::move(query.vector), limit - picked.size(),
                                          SamePath::bestAlone);
  auto rows = libraryEmbeddings(store, query.storedNumbers);
  while (rows.next(ranking.slot())) {
    if (!seen.contains(ranking.slot().path)) ranking.add();
  }
  for (auto& [rank, row] : ranking.take()) {
    picked.push_back({std::move(row.path), rank.similarity});
  }
}

Json passageOf(const MCPStore& store, const Picked& pick) {
  Json::Object passage{{"path", pick.path},
                       {"summary", librarySummary(store, pick.path).value_or("")},
                       {"nominated", isNominated(store, pick.path)},
                       {"match", pick.similarity ? "semantic" : "name/tags"}};
  if (pick.similarity) passage["similarity"] = double{*pick.similarity};
  return passage;
}

}  // namespace

Json askNorvastTool(const Arguments& args, const ToolContext& context) {
  if (!isLibraryOn()) {
    return textResult("Whole-library access is off. Enable it in the Norvast app (Settings).",
                      IsError::yes);
  }
  const std::string question = args.str("question");
  const auto limit =
      static_cast<std::size_t>(std::clamp<std::int64_t>(args.intArg("limit", 8), 1, MOST_PASSAGES));

  std::vector<Picked> picked = pickByKeywords(context.store, question, limit);
  if (picked.size() < limit) {
    if (auto query = context.query(question)) {
      pickByMeaning(context.store, std::move(*query), limit, picked);
    }
  }
  if (picked.empty()) {
    return textResult(
        "No matches — semantic retrieval is unavailable and nothing matched the question's "
        "keywords.",
        IsError::yes);
  }

  Json::Array passages;
  for (const Picked& pick : picked) passages.emplace_back(passageOf(context.store, pick));
  audit(context.store,
        {"ask-norvast",
         quoted(question) + AUDIT_SEPARATOR + std::to_string(picked.size()) + " passages",
         "ok · summaries only", Severity::ok});
  return textResult(
      jsonText(Json::Object{
          {"question", question},
          {"grounding", "on-device summaries from across the whole library (not raw content)"},
          {"passages", std::move(passages)},
          {"note",
           "Synthesize an answer citing these paths. To quote a file's content, ask the user to "
           "nominate it, then call read_file_content."}}),
      IsError::no);
}

}  // namespace norvast
