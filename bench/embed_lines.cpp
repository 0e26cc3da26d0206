// Prints the vector of each line of standard input: its numbers separated by blanks, an empty line
// where there is no vector. With the installed model, where there is one, as the indexer embeds;
// with --query, as a query of that index is embedded. For measuring the embedding from outside.
#include <array>
#include <charconv>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "embedding/sentence_embedding.h"

namespace {

std::optional<std::vector<float>> queryVector(const norvast::SentenceEmbedding& sentence,
                                              const std::string& text, const std::string& scheme) {
  const auto query = sentence.query(text, scheme);
  return query ? std::optional(query->vector) : std::nullopt;
}

}  // namespace

int main(int count, char** arguments) {
  const bool isQuery = count == 2 && std::string_view(arguments[1]) == "--query";
  auto sentence = norvast::SentenceEmbedding::english();
  if (!sentence || (count > 1 && !isQuery)) return 1;
  if (const auto why = sentence->useInstalledModel()) std::cerr << *why << '\n';
  const std::string scheme = sentence->scheme();
  std::string line;
  std::string output;
  while (std::getline(std::cin, line)) {
    output.clear();
    const auto vector = isQuery ? queryVector(*sentence, line, scheme) : sentence->vector(line);
    if (vector) {
      std::array<char, 32> digits{};  // the longest shortest form has 16 characters
      for (const float value : *vector) {
        if (!output.empty()) output += ' ';
        output.append(digits.data(),
                      std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
      }
    }
    std::cout << output << '\n';
  }
  return 0;
}
