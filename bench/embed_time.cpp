// How long the embedding of one query takes.
#include <chrono>
#include <cstdio>
#include <string>

#include "platform/sentence_embedding.h"

int main() {
  constexpr int ROUNDS = 20'000;
  const std::string query =
      "Which of the quarterly reports from the garden association in Zürich mentions a new pump, "
      "its price and parseSensorLog2 errors?";
  const auto sentence = norvast::SentenceEmbedding::english();
  double sum = 0;
  const auto start = std::chrono::steady_clock::now();
  for (int round = 0; round < ROUNDS; ++round) sum += sentence->vector(query)->front();
  const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
  std::printf("%-58s %6.1f microseconds%s\n", "one query of 20 words", taken.count() / ROUNDS,
              sum == 1 ? " " : "");
  return 0;
}
