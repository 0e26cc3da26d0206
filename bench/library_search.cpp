// What the whole-library tools add to the statements that they run, and how much memory they take.
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "bench/bench_index.h"
#include "bench/ratio.h"
#include "embedding/sentence_embedding.h"
#include "store/mcp_store.h"
#include "store/statement.h"
#include "tools/call_tool.h"

namespace norvast {
namespace {

constexpr int ROUNDS = 7;

// The search statement alone: prepared, stepped, all columns read.
void searchBare(const MCPStore& store, const std::string& term, int limit) {
  const std::string pattern = "%" + term + "%";
  Statement statement(store.rdb,
                      R"(SELECT f.path,f.name,f.ext,f.grp,f.size,f.modified,a.summary FROM file f
LEFT JOIN analysis a ON a.path = f.path
WHERE f.name LIKE ? ESCAPE '\' OR a.summary LIKE ? ESCAPE '\' OR a.entities LIKE ? ESCAPE '\'
ORDER BY (CASE WHEN f.name LIKE ? ESCAPE '\' THEN 0 ELSE 1 END), f.modified DESC
LIMIT )" + std::to_string(limit),
                      std::vector<std::string>(4, pattern));
  std::size_t bytes = 0;
  while (statement.step()) {
    for (int column = 0; column < 7; ++column) bytes += statement.text(column).size();
  }
  if (bytes == 1) std::puts("");  // keeps the loop
}

void run() {
  BenchIndex index;
  index.addSummarisedFiles(100'000);
  index.addSwitchFile("mcp.librarymeta");
  const std::optional<MCPStore> store = MCPStore::open();
  const auto sentence = SentenceEmbedding::english();
  const Arguments query(JsonText::parse(R"({"query":"garden"})"));
  const Arguments question(JsonText::parse(
      R"({"question":"Which garden report of the village quarter has music and compost?"})"));

  const auto search = [&] { (void)callTool("search_library", query, store, sentence); };
  printPeakMemory("search_library, 100,000 files", search);
  printRatio(
      "search_library, 100,000 files, to its bare statement", ROUNDS,
      [&] { searchBare(*store, "garden", 30); }, search);
  const auto ask = [&] { (void)callTool("ask_norvast", question, store, sentence); };
  printPeakMemory("ask_norvast, 100,000 files", ask);
  printRatio(
      "ask_norvast, six terms, to six bare statements", ROUNDS,
      [&] {
        for (const char* term : {"garden", "report", "village", "quarter", "music", "compost"}) {
          searchBare(*store, term, 50);
        }
      },
      ask);
}

}  // namespace
}  // namespace norvast

int main() {
  norvast::run();
  return 0;
}
