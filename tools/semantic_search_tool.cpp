#include "tools/semantic_search_tool.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "access/audit_trail.h"
#include "ranking/similarity_ranking.h"
#include "store/nominated_files.h"
#include "store/vector_rows.h"
#include "tools/tool_result.h"

namespace norvast {
namespace {

using Ranking = SimilarityRanking<EmbeddingRow>;

std::vector<Ranking::Ranked> bestFiles(const MCPStore& store, SentenceQuery query,
                                       std::int64_t limit) {
  Ranking ranking(std::move(query.vector),
                  static_cast<std::size_t>(std::max<std::int64_t>(limit, 0)));
  auto rows = allowlistedEmbeddings(store, query.storedNumbers);
  while (rows.next(ranking.slot())) ranking.add();
  return ranking.take();
}

}  // namespace

Json semanticSearchTool(const Arguments& args, const ToolContext& context) {
  const std::string query = args.str("query");
  const std::int64_t limit = args.intArg("limit", 10);
  auto sentence = context.query(query);
  if (!sentence) {
    return refuse(context.store,
                  {"semantic", quoted(query), "embeddings unavailable", Severity::warn},
                  "Semantic search unavailable (no embeddings).");
  }

  Json::Array results;
  for (auto& [rank, row] : bestFiles(context.store, std::move(*sentence), limit)) {
    results.emplace_back(Json::Object{{"path", row.path},
                                      {"similarity", double{rank.similarity}},
                                      {"summary", summary(context.store, row.path).value_or("")}});
  }
  const std::size_t count = results.size();
  audit(context.store,
        {"semantic", quoted(query) + AUDIT_SEPARATOR + std::to_string(count) + " hits", "ok",
         Severity::ok});
  return textResult(jsonText(Json::Object{{"count", count}, {"results", std::move(results)}}),
                    IsError::no);
}

}  // namespace norvast
