#include "platform/embedding_words.h"

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include "platform/english_function_words.h"

namespace norvast {
namespace {

constexpr double PIECE_COUNT = 0.7;
constexpr double NEIGHBOURED_IDEOGRAPH_COUNT = 0.5;
constexpr double FUNCTION_WORD_WEIGHT = 0.1;
constexpr std::size_t FEWEST_CHARACTERS_OF_A_PIECE = 2;

icu::UnicodeString withoutMarks(const icu::UnicodeString& text) {
  icu::UnicodeString bare;
  for (std::int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
    const UChar32 character = text.char32At(at);
    if ((U_GET_GC_MASK(character) & U_GC_M_MASK) == 0) bare.append(character);
  }
  return bare;
}

// Compatibility decomposition, combining marks dropped, recomposed. On failure the text as it is.
icu::UnicodeString foldUnicode(const icu::UnicodeString& source) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* decomposer = icu::Normalizer2::getNFKDInstance(status);
  const icu::Normalizer2* composer = icu::Normalizer2::getNFCInstance(status);
  if (U_FAILURE(status) != 0) return source;

  // Marks that are there from the start go first: a decomposition would put them in order, in time
  // quadratic in the marks behind one letter.
  const icu::UnicodeString decomposed = decomposer->normalize(withoutMarks(source), status);
  icu::UnicodeString folded = composer->normalize(withoutMarks(decomposed), status);
  return U_FAILURE(status) != 0 ? source : folded;
}

void appendFolded(std::string_view text, std::u32string& scalars) {
  const icu::UnicodeString folded = foldUnicode(icu::UnicodeString::fromUTF8(
      icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size()))));
  for (std::int32_t at = 0; at < folded.length(); at = folded.moveIndex32(at, 1)) {
    scalars.push_back(static_cast<char32_t>(folded.char32At(at)));
  }
}

bool isAsciiByte(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

// The folded text as scalars. ASCII is its own folding, and nothing but a mark, which is dropped,
// joins it: so each run of other characters is folded by itself.
std::u32string fold(std::string_view text) {
  std::u32string scalars;
  scalars.reserve(text.size());
  for (auto at = text.begin(); at != text.end();) {
    const auto run = std::find_if_not(at, text.end(), isAsciiByte);
    scalars.append(at, run);
    at = std::find_if(run, text.end(), isAsciiByte);
    if (run != at) appendFolded({run, at}, scalars);
  }
  return scalars;
}

enum class Kind { separator, small, capital, otherLetter, digit, ideograph };

Kind kindOf(char32_t scalar) {
  if (scalar < 0x80) {
    if (scalar >= 'a' && scalar <= 'z') return Kind::small;
    if (scalar >= 'A' && scalar <= 'Z') return Kind::capital;
    return scalar >= '0' && scalar <= '9' ? Kind::digit : Kind::separator;
  }
  const auto character = static_cast<UChar32>(scalar);
  if (u_isdigit(character) != 0) return Kind::digit;
  if (u_isalpha(character) == 0) return Kind::separator;
  for (const UScriptCode script :
       {USCRIPT_HAN, USCRIPT_HIRAGANA, USCRIPT_KATAKANA, USCRIPT_HANGUL}) {
    if (uscript_hasScript(character, script) != 0) return Kind::ideograph;
  }
  if (u_isupper(character) != 0) return Kind::capital;
  return u_islower(character) != 0 ? Kind::small : Kind::otherLetter;
}

std::string lowerCased(std::u32string_view run) {
  std::string text;
  if (std::all_of(run.begin(), run.end(), [](char32_t scalar) { return scalar < 0x80; })) {
    for (const char32_t scalar : run) {
      const bool isCapital = scalar >= 'A' && scalar <= 'Z';
      text += static_cast<char>(isCapital ? scalar + ('a' - 'A') : scalar);
    }
    return text;
  }
  icu::UnicodeString word;
  for (const char32_t scalar : run) word.append(static_cast<UChar32>(scalar));
  return word.toLower(icu::Locale::getRoot()).toUTF8String(text);
}

// True when a new piece of an identifier begins at `at`, which is above 0.
bool beginsPiece(std::u32string_view run, std::size_t at) {
  const Kind before = kindOf(run[at - 1]);
  const Kind here = kindOf(run[at]);
  if ((before == Kind::digit) != (here == Kind::digit)) return true;
  if (here != Kind::capital) return false;
  if (before == Kind::small) return true;
  return before == Kind::capital && at + 1 < run.size() && kindOf(run[at + 1]) == Kind::small;
}

class WordCounter {
 public:
  void addWord(std::u32string_view run) {
    counts_[lowerCased(run)] += 1;
    std::size_t start = 0;
    for (std::size_t at = 1; at <= run.size(); ++at) {
      if (at < run.size() && !beginsPiece(run, at)) continue;
      const bool isWhole = start == 0 && at == run.size();
      if (!isWhole && at - start >= FEWEST_CHARACTERS_OF_A_PIECE) {
        counts_[lowerCased(run.substr(start, at - start))] += PIECE_COUNT;
      }
      start = at;
    }
  }

  void addIdeographs(std::u32string_view run) {
    const double single = run.size() == 1 ? 1 : NEIGHBOURED_IDEOGRAPH_COUNT;
    for (std::size_t at = 0; at < run.size(); ++at) {
      counts_[lowerCased(run.substr(at, 1))] += single;
      if (at + 1 < run.size()) counts_[lowerCased(run.substr(at, 2))] += 1;
    }
  }

  std::vector<std::pair<std::string, double>> take() {
    std::vector<std::pair<std::string, double>> sorted(counts_.begin(), counts_.end());
    std::sort(sorted.begin(), sorted.end());
    return sorted;
  }

 private:
  std::unordered_map<std::string, double> counts_;
};

bool isApostrophe(char32_t scalar) { return scalar == '\'' || scalar == 0x2019; }

// The length of the run of words, or of ideographs, at the beginning of a text.
std::size_t runLength(std::u32string_view text, bool ofIdeographs) {
  std::size_t length = 0;
  for (; length < text.size(); ++length) {
    const Kind kind = kindOf(text[length]);
    if (kind == Kind::separator || (kind == Kind::ideograph) != ofIdeographs) break;
  }
  return length;
}

// Whether an apostrophe and s that end a word stand at the beginning of a text.
bool beginsWithPossessive(std::u32string_view text) {
  if (text.size() < 2 || !isApostrophe(text[0]) || (text[1] != 's' && text[1] != 'S')) return false;
  return text.size() == 2 || kindOf(text[2]) == Kind::separator;
}

}  // namespace

std::vector<std::pair<std::string, double>> weighedWords(std::string_view text) {
  const std::u32string folded = fold(text);
  WordCounter counter;
  for (std::u32string_view rest = folded; !rest.empty();) {
    const Kind kind = kindOf(rest.front());
    if (kind == Kind::separator) {
      rest.remove_prefix(1);
      continue;
    }
    const bool isIdeograph = kind == Kind::ideograph;
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
  for (auto& [word, weight] : words) {
    weight = std::sqrt(weight) * (isFunctionWord(word) ? FUNCTION_WORD_WEIGHT : 1);
  }
  return words;
}

}  // namespace norvast
