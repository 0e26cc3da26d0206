#include "indexer/analysis/summary_sentences.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "indexer/analysis/lines.h"
#include "indexer/analysis/prose_text.h"
#include "language/function_words.h"
#include "text/ascii.h"
#include "text/byte_set.h"
#include "text/content_terms.h"
#include "text/phrase_set.h"
#include "text/sentences.h"
#include "text/unicode.h"

namespace norvast::indexer {
namespace {

constexpr std::size_t SHORTEST_CLUSTERS = 20;
constexpr std::size_t LONGEST_CLUSTERS = 300;
constexpr std::size_t FEWEST_TERMS = 3;

// A sentence with such a phrase is about the file and not of its subject.
bool isNotice(std::string_view lower) {
  static const std::vector<std::string_view> NOTICES = phrasesOfAll(&Language::notices);
  static const PhraseSet PHRASES(NOTICES);
  return PHRASES.isIn(lower) || lower.find("©") != std::string_view::npos;
}

// Less for a question, for a sentence that leans on the one before it, and for one that refers to
// another place in the text: none of them says much when it stands alone.
double weightOf(std::string_view lower) {
  static const std::vector<std::string_view> STARTS = phrasesOfAll(&Language::leaningStarts);
  static const std::vector<std::string_view> REFERENCES = phrasesOfAll(&Language::references);
  static const PhraseSet PLACES(REFERENCES);
  const auto begins = [lower](std::string_view start) { return lower.starts_with(start); };
  double weight = lower.ends_with("?") ? 0.5 : 1;
  if (std::any_of(STARTS.begin(), STARTS.end(), begins)) weight *= 0.6;
  if (PLACES.isIn(lower)) weight *= 0.6;
  return weight;
}

bool endsAsSentence(std::string_view sentence) {
  for (bool isCut = true; isCut;) {
    isCut = false;
    for (const std::string_view close : {"\"", ")", "”", "“", "»", "«", "’", "'", " "}) {
      if (!sentence.ends_with(close)) continue;
      sentence.remove_suffix(close.size());
      isCut = true;
    }
  }
  for (const std::string_view end : {".", "!", "?", "…", "。", "！", "？"}) {
    if (sentence.ends_with(end)) return !sentence.ends_with("...");
  }
  return false;
}

// Letters for the most part, with no signs of a program, and not the rest of a sentence that began
// above an inserted line.
bool readsAsProse(std::string_view sentence) {
  static constexpr ByteSet PROGRAM_SIGNS("{}=\\|");
  const auto isSign = [](char character) {
    return static_cast<unsigned char>(character) < 0x80 && character > ' ' &&
           !isAsciiDigit(character) &&
           !(asciiLowerCase(character) >= 'a' && asciiLowerCase(character) <= 'z');
  };
  const auto signs = std::count_if(sentence.begin(), sentence.end(), isSign);
  const auto digits = std::count_if(sentence.begin(), sentence.end(), isAsciiDigit);
  const auto size = static_cast<std::ptrdiff_t>(sentence.size());
  return signs * 10 <= size && digits * 5 <= size && !PROGRAM_SIGNS.isIn(sentence) &&
         sentence.find("://") == std::string_view::npos &&
         letterCaseOf(sentence) != LetterCase::small;
}

// "am 14." of "am 14. Mai": German writes ordinals so.
bool endsWithOrdinal(std::string_view sentence) {
  if (!sentence.ends_with('.')) return false;
  sentence.remove_suffix(1);
  const std::size_t before = sentence.find_last_not_of("0123456789");
  const std::size_t digits = sentence.size() - (before + 1);  // npos + 1 is 0: nothing else
  return (digits == 1 || digits == 2) && before != std::string_view::npos &&
         isBlank(sentence[before]);
}

std::vector<std::string_view> wholeSentencesOf(std::string_view prose, const Language& language) {
  std::vector<std::string_view> whole;
  for (const std::string_view sentence : sentencesOf(prose, std::string(language.code))) {
    if (language.ordinalsEndWithPoint && !whole.empty() && endsWithOrdinal(whole.back())) {
      const char* start = whole.back().data();
      whole.back() = {start, static_cast<std::size_t>(sentence.data() + sentence.size() - start)};
    } else {
      whole.push_back(sentence);
    }
  }
  return whole;
}

std::vector<std::string> termsOf(std::string_view sentence, const Language& language) {
  std::vector<std::string> terms = contentTerms(sentence);
  std::erase_if(terms, [bit = bitOf(language)](const std::string& term) {
    return isFunctionWordIn(term, bit);
  });
  return terms;
}

bool isQuoted(std::string_view stretch) { return trimmed(stretch).starts_with('>'); }

// What a mail program puts before the signature.
bool beginsSignature(std::string_view stretch) {
  return stretch == "--" || stretch == "-- " || stretch.starts_with("-- \n") ||
         stretch.starts_with("--\n");
}

}  // namespace

std::vector<SummarySentence> summarySentences(const Outline& outline, const Language& language,
                                              std::size_t limitBytes) {
  std::vector<SummarySentence> sentences;
  std::vector<SummarySentence> notices;
  for (const Stretch& stretch : outline.stretches) {
    if (stretch.start >= limitBytes) break;
    if (stretch.kind != Stretch::Kind::prose) continue;
    const std::string_view text = outline.textOf(stretch).substr(0, limitBytes - stretch.start);
    if (isQuoted(text) || beginsSignature(text)) continue;
    const std::string prose = proseText(text);
    for (const std::string_view sentence : wholeSentencesOf(prose, language)) {
      if (!endsAsSentence(sentence) || !readsAsProse(sentence)) continue;
      const std::size_t clusters = countClusters(sentence);
      if (clusters < SHORTEST_CLUSTERS || clusters > LONGEST_CLUSTERS) continue;
      std::vector<std::string> terms = termsOf(sentence, language);
      if (terms.size() < FEWEST_TERMS) continue;
      const std::string lower = lowerCase(sentence);
      auto& kind = isNotice(lower) ? notices : sentences;
      kind.push_back({std::string(sentence), clusters, std::move(terms), weightOf(lower)});
    }
  }
  if (sentences.empty()) return notices;
  sentences.front().weight = 1;  // nothing is before it
  return sentences;
}

}  // namespace norvast::indexer
