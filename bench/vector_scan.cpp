// What the semantic tools add to the bare scan over the vectors that they rank, and how much memory
// they take meanwhile.
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include "bench/bench_index.h"
#include "bench/ratio.h"
#include "embedding/sentence_embedding.h"
#include "store/mcp_store.h"
#include "store/statement.h"
#include "tools/call_tool.h"

namespace norvast {
namespace {

constexpr int ROUNDS = 7;

// Touches every blob of the statement and nothing else.
void stepBare(const MCPStore& store, const char* sql, int blobColumn) {
  Statement statement(store.rdb, sql);
  std::size_t touched = 0;
  while (statement.step()) touched += static_cast<std::size_t>(statement.blob(blobColumn)[0]);
  if (touched == 1) std::puts("");  // keeps the loop
}

void run() {
  BenchIndex index;
  index.addEmbeddedFiles(100'000, 3);
  const std::optional<MCPStore> store = MCPStore::open();
  const auto sentence = SentenceEmbedding::english();
  const Arguments query(JsonText::parse(R"({"query":"garden report for the summer quarter"})"));

  const auto search = [&] { (void)callTool("semantic_search", query, store, sentence); };
  printPeakMemory("semantic_search, 100,000 files", search);
  printRatio(
      "semantic_search, 100,000 files, to the bare steps", ROUNDS,
      [&] {
        stepBare(*store,
                 "SELECT e.path, e.vec FROM embedding e JOIN mcp_exposure m ON m.path = "
                 "e.path",
                 1);
      },
      search);
  const auto retrieve = [&] { (void)callTool("retrieve_passages", query, store, sentence); };
  printPeakMemory("retrieve_passages, 300,000 passages", retrieve);
  printRatio(
      "retrieve_passages, 300,000 passages, to the bare steps", ROUNDS,
      [&] {
        stepBare(*store,
                 "SELECT c.path, c.ord, c.text, c.vec FROM chunk c JOIN mcp_exposure m ON "
                 "m.path = c.path WHERE m.allow_content = 1",
                 3);
      },
      retrieve);
}

}  // namespace
}  // namespace norvast

int main() {
  norvast::run();
  return 0;
}
