// How long the embedding of one query and of one passage takes, with words met before and with
// words never met; with the installed model, where there is one, and how long that takes to load.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "embedding/sentence_embedding.h"

namespace {

// Of the processor, which others do not slow much.
double microseconds() { return 1e6 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

constexpr std::size_t TEXTS = 5000;
constexpr std::size_t ROUNDS = 10;
constexpr std::size_t PASSAGE_BYTES = 600;  // the longest of ASCII that the indexer makes

// Texts of words of 3 to 10 random letters.
std::vector<std::string> newTexts(int words) {
  std::mt19937 random(1);
  std::vector<std::string> texts(TEXTS);
  for (std::string& text : texts) {
    for (int word = 0; word < words; ++word) {
      for (unsigned letters = 3 + random() % 8; letters > 0; --letters) {
        text += static_cast<char>('a' + random() % 26);
      }
      text += ' ';
    }
  }
  return texts;
}

// That of the quickest of ten rounds.
void printTime(const char* name, const norvast::SentenceEmbedding& sentence,
               const std::vector<std::string>& texts) {
  double sum = 0;
  double quickest = HUGE_VAL;
  for (std::size_t round = 0; round < ROUNDS; ++round) {
    const double start = microseconds();
    for (std::size_t at = round; at < TEXTS; at += ROUNDS) {
      sum += double{sentence.vector(texts[at])->front()};
    }
    quickest = std::min(quickest, microseconds() - start);
  }
  std::printf("%-58s %6.1f microseconds%s\n", name, quickest * ROUNDS / TEXTS, sum == 1 ? " " : "");
}

void printLoadTime() {
  double quickest = HUGE_VAL;
  for (std::size_t round = 0; round < ROUNDS; ++round) {
    auto sentence = norvast::SentenceEmbedding::english();
    const double start = microseconds();
    (void)sentence->useInstalledModel();
    quickest = std::min(quickest, microseconds() - start);
  }
  std::printf("%-58s %6.1f milliseconds\n", "loading the installed model", quickest / 1000);
}

}  // namespace

int main() {
  auto sentence = norvast::SentenceEmbedding::english();
  if (const auto why = sentence->useInstalledModel()) std::puts(why->c_str());
  std::printf("scheme %s\n", sentence->scheme().c_str());
  printLoadTime();
  const std::string known =
      "Which of the quarterly reports from the garden association in Zürich mentions a new pump, "
      "its price and parseSensorLog2 errors?";
  std::string passage;
  while (passage.size() < PASSAGE_BYTES) passage += known + " ";
  passage.resize(PASSAGE_BYTES);
  printTime("one query of 20 words met before", *sentence, std::vector(TEXTS, known));
  printTime("one query of 20 words never met", *sentence, newTexts(20));
  printTime("one passage of 600 bytes of words met before", *sentence, std::vector(TEXTS, passage));
  printTime("one passage of 80 words never met", *sentence, newTexts(80));
  return 0;
}
