#include "indexer/analysis/text_language.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "indexer/analysis/lines.h"
#include "language/function_words.h"
#include "text/unicode.h"

namespace norvast::indexer {
namespace {

constexpr std::size_t LOOKED_AT_WORDS = 600;
constexpr std::size_t LOOKED_AT_WORDS_A_STRETCH = 40;
constexpr std::size_t FEWEST_FUNCTION_WORDS = 3;

using Counts = std::array<std::size_t, LANGUAGES.size()>;

// The bits of all languages in which a word is a function word.
LanguageBits languagesOf(std::string_view word) {
  const FunctionWord found = functionWord(foldDiacritics(lowerCase(word)));
  return found.everywhere | found.inItsTextsAlone;
}

// How many of the leading words of a stretch each language has.
void count(std::string_view text, Counts& counts, std::size_t& words) {
  std::size_t here = 0;
  for (const std::string_view line : linesOf(text)) {
    for (const std::string_view word : wordsBetweenBlanks(line)) {
      if (++here > LOOKED_AT_WORDS_A_STRETCH || ++words > LOOKED_AT_WORDS) return;
      const LanguageBits languages = languagesOf(word);
      for (std::size_t at = 0; at < LANGUAGES.size(); ++at) counts[at] += languages >> at & 1U;
    }
  }
}

}  // namespace

const Language& languageOf(const Outline& outline) {
  Counts counts{};
  std::size_t words = 0;
  for (const Stretch& stretch : outline.stretches) {
    if (words > LOOKED_AT_WORDS) break;
    if (stretch.kind != Stretch::Kind::code) count(outline.textOf(stretch), counts, words);
  }
  const auto* most = std::max_element(counts.begin() + 1, counts.end());
  if (*most < FEWEST_FUNCTION_WORDS || *most * 2 < counts.front()) return ENGLISH;
  return *LANGUAGES[static_cast<std::size_t>(most - counts.begin())];
}

}  // namespace norvast::indexer
