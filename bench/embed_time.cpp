// How long the embedding of one query takes, with words met before and with words never met.
#include <chrono>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "embedding/sentence_embedding.h"

namespace {

constexpr std::size_t QUERIES = 5000;
constexpr int WORDS = 20;

// Texts of 20 words of 3 to 10 random letters each.
std::vector<std::string> newQueries() {
  std::mt19937 random(1);
  std::vector<std::string> queries(QUERIES);
  for (std::string& query : queries) {
    for (int word = 0; word < WORDS; ++word) {
      for (unsigned letters = 3 + random() % 8; letters > 0; --letters) {
        query += static_cast<char>('a' + random() % 26);
      }
      query += ' ';
    }
  }
  return queries;
}

void printTime(const char* name, const norvast::SentenceEmbedding& sentence,
               const std::vector<std::string>& queries) {
  double sum = 0;
  const auto start = std::chrono::steady_clock::now();
  for (const std::string& query : queries) sum += double{sentence.vector(query)->front()};
  const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
  std::printf("%-58s %6.1f microseconds%s\n", name, taken.count() / QUERIES, sum == 1 ? " " : "");
}

}  // namespace

int main() {
  const auto sentence = norvast::SentenceEmbedding::english();
  const std::string known =
      "Which of the quarterly reports from the garden association in Zürich mentions a new pump, "
      "its price and parseSensorLog2 errors?";
  printTime("one query of 20 words met before", *sentence, std::vector(QUERIES, known));
  printTime("one query of 20 words never met", *sentence, newQueries());
  return 0;
}
