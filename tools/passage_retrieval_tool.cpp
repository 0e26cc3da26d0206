#include "tools/passage_retrieval_tool.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "access/audit_trail.h"
#include "ranking/similarity_ranking.h"
#include "store/vector_rows.h"
#include "tools/tool_result.h"

namespace norvast {
namespace {

constexpr std::int64_t MOST_PASSAGES = 50;

using Ranking = SimilarityRanking<ChunkRow>;

std::vector<Ranking::Ranked> bestPassages(const MCPStore& store, SentenceQuery query,
                                          std::int64_t limit) {
  Ranking ranking(std::move(query.vector), static_cast<std::size_t>(limit));
  auto rows = allowlistedChunks(store, query.storedNumbers);
  while (rows.next(ranking.slot())) ranking.add();
  return ranking.take();
}

}  // namespace

Json retrievePassagesTool(const Arguments& args, const ToolContext& context) {
  const std::string query = args.str("query");
  const std::int64_t limit = std::clamp<std::int64_t>(args.intArg("limit", 8), 1, MOST_PASSAGES);
  auto sentence = context.query(query);
  if (!sentence) {
    return refuse(context.store,
                  {"retrieve", quoted(query), "embeddings unavailable", Severity::warn},
                  "Passage retrieval unavailable (no embeddings).");
  }

  Json::Array passages;
  for (auto& [rank, row] : bestPassages(context.store, std::move(*sentence), limit)) {
    passages.emplace_back(Json::Object{{"path", std::move(row.path)},
                                       {"passage", row.ord},
                                       {"similarity", double{rank.similarity}},
                                       {"text", std::move(row.text)}});
  }
  const std::size_t count = passages.size();
  audit(context.store,
        {"retrieve", quoted(query) + AUDIT_SEPARATOR + std::to_string(count) + " passages", "ok",
         Severity::ok});
  const char* note =
      count > 0
          ? "Cite each passage by its path. Excerpts are from nominated files you may read in "
            "full via read_file_content."
          : "No passages — nominate documents (with content access) so they get chunked for "
            "retrieval.";
  return textResult(
      jsonText(Json::Object{{"count", count}, {"passages", std::move(passages)}, {"note", note}}),
      IsError::no);
}

}  // namespace norvast
