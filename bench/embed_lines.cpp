// Prints the vector of each line of standard input: its numbers separated by blanks, an empty line
// where there is no vector. For measuring the embedding from outside.
#include <array>
#include <charconv>
#include <iostream>
#include <string>

#include "embedding/sentence_embedding.h"

int main() {
  const auto sentence = norvast::SentenceEmbedding::english();
  if (!sentence) return 1;
  std::string line;
  std::string output;
  while (std::getline(std::cin, line)) {
    output.clear();
    if (const auto vector = sentence->vector(line)) {
      std::array<char, 32> digits{};  // the longest shortest form has 24 characters
      for (const double value : *vector) {
        if (!output.empty()) output += ' ';
        output.append(digits.data(),
                      std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
      }
    }
    std::cout << output << '\n';
  }
  return 0;
}
