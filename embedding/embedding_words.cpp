#include "embedding/embedding_words.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory_resource>
#include <unordered_map>

#include "language/function_words.h"
#include "text/word_scalars.h"

namespace norvast {
namespace {

constexpr double PIECE_COUNT = 0.7;
constexpr double NEIGHBOURED_IDEOGRAPH_COUNT = 0.5;
constexpr double FUNCTION_WORD_WEIGHT = 0.1;
constexpr std::size_t FEWEST_CHARACTERS_OF_A_PIECE = 2;

// True when a new piece of an identifier begins with a scalar between these two.
bool beginsPiece(ScalarKind before, ScalarKind here, ScalarKind after) {
  if ((before == ScalarKind::digit) != (here == ScalarKind::digit)) return true;
  if (here != ScalarKind::capital) return false;
  return before == ScalarKind::small ||
         (before == ScalarKind::capital && after == ScalarKind::small);
}

class WordCounter {
 public:
  void addWord(std::u32string_view run) {
    counts_[lowerCased(run)] += 1;
    std::size_t start = 0;
    ScalarKind before = scalarKindOf(run[0]);
    ScalarKind here = kindAt(run, 1);
    for (std::size_t at = 1; at < run.size(); ++at) {
      const ScalarKind after = kindAt(run, at + 1);
      if (beginsPiece(before, here, after)) {
        addPiece(run.substr(start, at - start));
        start = at;
      }
      before = here;
      here = after;
    }
    if (start > 0) addPiece(run.substr(start));
  }

  void addIdeographs(std::u32string_view run) {
    const double single = run.size() == 1 ? 1 : NEIGHBOURED_IDEOGRAPH_COUNT;
    for (std::size_t at = 0; at < run.size(); ++at) {
      counts_[lowerCased(run.substr(at, 1))] += single;
      if (at + 1 < run.size()) counts_[lowerCased(run.substr(at, 2))] += 1;
    }
  }

  std::vector<std::pair<std::string, double>> take() {
    std::vector<std::pair<std::string, double>> sorted;
    sorted.reserve(counts_.size());
    for (const auto& [word, count] : counts_) sorted.emplace_back(word, count);
    std::sort(sorted.begin(), sorted.end());
    return sorted;
  }

 private:
  static ScalarKind kindAt(std::u32string_view run, std::size_t at) {
    return at < run.size() ? scalarKindOf(run[at]) : ScalarKind::separator;
  }

  void addPiece(std::u32string_view piece) {
    if (piece.size() >= FEWEST_CHARACTERS_OF_A_PIECE) counts_[lowerCased(piece)] += PIECE_COUNT;
  }

  // A text has a hundred words or so, and there are many texts: their places cost little.
  std::pmr::monotonic_buffer_resource places_{16'384};
  std::pmr::unordered_map<std::string, double> counts_{&places_};
};

bool isApostrophe(char32_t scalar) { return scalar == '\'' || scalar == 0x2019; }

// The length of the run of words, or of ideographs, at the beginning of a text.
std::size_t runLength(std::u32string_view text, bool ofIdeographs) {
  std::size_t length = 0;
  for (; length < text.size(); ++length) {
    const ScalarKind kind = scalarKindOf(text[length]);
    if (kind == ScalarKind::separator || (kind == ScalarKind::ideograph) != ofIdeographs) break;
  }
  return length;
}

// Whether an apostrophe and s that end a word stand at the beginning of a text.
bool beginsWithPossessive(std::u32string_view text) {
  if (text.size() < 2 || !isApostrophe(text[0]) || (text[1] != 's' && text[1] != 'S')) return false;
  return text.size() == 2 || scalarKindOf(text[2]) == ScalarKind::separator;
}

}  // namespace

std::vector<std::pair<std::string, double>> weighedWords(std::string_view text) {
  const std::u32string folded = foldedScalars(text);
  WordCounter counter;
  for (std::u32string_view rest = folded; !rest.empty();) {
    const ScalarKind kind = scalarKindOf(rest.front());
    if (kind == ScalarKind::separator) {
      rest.remove_prefix(1);
      continue;
    }
    const bool isIdeograph = kind == ScalarKind::ideograph;
    const std::u32string_view run = rest.substr(0, runLength(rest, isIdeograph));
    rest.remove_prefix(run.size());
    if (isIdeograph) {
      counter.addIdeographs(run);
    } else {
      counter.addWord(run);
      if (beginsWithPossessive(rest)) rest.remove_prefix(2);
    }
  }

  std::vector<std::pair<std::string, double>> words = counter.take();
  FunctionWordCount count;
  std::vector<FunctionWord> functionWords;
  functionWords.reserve(words.size());
  for (const auto& [word, times] : words) {
    functionWords.push_back(functionWord(word));
    count.add(functionWords.back(), times);
  }
  for (std::size_t at = 0; at < words.size(); ++at) {
    double& weight = words[at].second;
    weight = std::sqrt(weight);
    if (count.holds(functionWords[at])) weight *= FUNCTION_WORD_WEIGHT;
  }
  return words;
}

}  // namespace norvast
