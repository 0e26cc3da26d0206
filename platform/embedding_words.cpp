#include "platform/embedding_words.h"

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/english_function_words.h"

namespace norvast {
namespace {

constexpr double PIECE_COUNT = 0.7;
constexpr double NEIGHBOURED_IDEOGRAPH_COUNT = 0.5;
constexpr double FUNCTION_WORD_WEIGHT = 0.1;
constexpr std::size_t FEWEST_CHARACTERS_OF_A_PIECE = 2;

// Compatibility decomposition, combining marks dropped, recomposed. On failure the text as it is.
icu::UnicodeString fold(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  icu::UnicodeString source = icu::UnicodeString::fromUTF8(
      icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
  const icu::Normalizer2* decomposer = icu::Normalizer2::getNFKDInstance(status);
  const icu::Normalizer2* composer = icu::Normalizer2::getNFCInstance(status);
  if (U_FAILURE(status) != 0) return source;

  const icu::UnicodeString decomposed = decomposer->normalize(source, status);
  icu::UnicodeString bare;
  for (std::int32_t at = 0; at < decomposed.length(); at = decomposed.moveIndex32(at, 1)) {
    const UChar32 character = decomposed.char32At(at);
    if ((U_GET_GC_MASK(character) & U_GC_M_MASK) == 0) bare.append(character);
  }
  icu::UnicodeString folded = composer->normalize(bare, status);
  return U_FAILURE(status) != 0 ? source : folded;
}

enum class Kind { separator, small, capital, otherLetter, digit, ideograph };

Kind kindOf(UChar32 character) {
  if (character < 0x80) {
    if (character >= 'a' && character <= 'z') return Kind::small;
    if (character >= 'A' && character <= 'Z') return Kind::capital;
    return character >= '0' && character <= '9' ? Kind::digit : Kind::separator;
  }
  if (u_isdigit(character) != 0) return Kind::digit;
  if (u_isalpha(character) == 0) return Kind::separator;
  for (const UScriptCode script :
       {USCRIPT_HAN, USCRIPT_HIRAGANA, USCRIPT_KATAKANA, USCRIPT_HANGUL}) {
    if (uscript_hasScript(character, script) != 0) return Kind::ideograph;
  }
  if (u_isupper(character) != 0) return Kind::capital;
  return u_islower(character) != 0 ? Kind::small : Kind::otherLetter;
}

struct Character {
  UChar32 scalar;
  Kind kind;
};

using Run = std::vector<Character>;

std::string lowerCase(const Run& run, std::size_t first, std::size_t last) {
  icu::UnicodeString word;
  for (std::size_t at = first; at < last; ++at) word.append(run[at].scalar);
  std::string text;
  return word.toLower(icu::Locale::getRoot()).toUTF8String(text);
}

// True when a new piece of an identifier begins at `at`, which is above 0.
bool beginsPiece(const Run& run, std::size_t at) {
  const Kind before = run[at - 1].kind;
  const Kind here = run[at].kind;
  if ((before == Kind::digit) != (here == Kind::digit)) return true;
  if (here != Kind::capital) return false;
  if (before == Kind::small) return true;
  return before == Kind::capital && at + 1 < run.size() && run[at + 1].kind == Kind::small;
}

class WordCounter {
 public:
  void addWord(const Run& run) {
    counts[lowerCase(run, 0, run.size())] += 1;
    std::size_t start = 0;
    for (std::size_t at = 1; at <= run.size(); ++at) {
      if (at < run.size() && !beginsPiece(run, at)) continue;
      const bool isWhole = start == 0 && at == run.size();
      if (!isWhole && at - start >= FEWEST_CHARACTERS_OF_A_PIECE) {
        counts[lowerCase(run, start, at)] += PIECE_COUNT;
      }
      start = at;
    }
  }

  void addIdeographs(const Run& run) {
    const double single = run.size() == 1 ? 1 : NEIGHBOURED_IDEOGRAPH_COUNT;
    for (std::size_t at = 0; at < run.size(); ++at) {
      counts[lowerCase(run, at, at + 1)] += single;
      if (at + 1 < run.size()) counts[lowerCase(run, at, at + 2)] += 1;
    }
  }

  std::map<std::string, double> counts;
};

bool isApostrophe(UChar32 character) { return character == '\'' || character == 0x2019; }

// Cuts a folded text into runs of one kind: words, or ideographs.
class Cutter {
 public:
  explicit Cutter(const icu::UnicodeString& text) : text_(text) {}

  std::map<std::string, double> count() {
    while (at_ < text_.length()) {
      const Kind kind = kindOf(text_.char32At(at_));
      if (kind == Kind::separator) {
        advance();
      } else if (kind == Kind::ideograph) {
        counter_.addIdeographs(takeRun(true));
      } else {
        counter_.addWord(takeRun(false));
        skipPossessive();
      }
    }
    return std::move(counter_.counts);
  }

 private:
  void advance() { at_ = text_.moveIndex32(at_, 1); }

  Run takeRun(bool ofIdeographs) {
    Run run;
    for (; at_ < text_.length(); advance()) {
      const UChar32 scalar = text_.char32At(at_);
      const Kind kind = kindOf(scalar);
      if (kind == Kind::separator || (kind == Kind::ideograph) != ofIdeographs) break;
      run.push_back({scalar, kind});
    }
    return run;
  }

  void skipPossessive() {
    if (at_ + 1 >= text_.length() || !isApostrophe(text_.charAt(at_))) return;
    const UChar32 letter = text_.charAt(at_ + 1);
    if (letter != 's' && letter != 'S') return;
    const bool isFinal =
        at_ + 2 >= text_.length() || kindOf(text_.char32At(at_ + 2)) == Kind::separator;
    if (isFinal) at_ += 2;
  }

  const icu::UnicodeString& text_;
  std::int32_t at_ = 0;
  WordCounter counter_;
};

}  // namespace

std::map<std::string, double> weighedWords(std::string_view text) {
  const icu::UnicodeString folded = fold(text);
  std::map<std::string, double> words = Cutter(folded).count();
  for (auto& [word, weight] : words) {
    weight = std::sqrt(weight) * (isFunctionWord(word) ? FUNCTION_WORD_WEIGHT : 1);
  }
  return words;
}

}  // namespace norvast
