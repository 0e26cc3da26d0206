#include "text/word_scalars.h"

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <cstddef>

namespace norvast {
namespace {

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

// How many leading bytes of a text are ASCII, or are not.
std::size_t runOf(std::string_view text, bool ofAscii) {
  std::size_t length = 0;
  while (length < text.size() && (static_cast<unsigned char>(text[length]) < 0x80) == ofAscii) {
    ++length;
  }
  return length;
}

}  // namespace

// ASCII is its own folding, and nothing but a mark, which is dropped,
// joins it: so each run of other characters is folded by itself.
std::u32string foldedScalars(std::string_view text) {
  std::u32string scalars;
  scalars.reserve(text.size());
  while (!text.empty()) {
    const std::string_view ascii = text.substr(0, runOf(text, true));
    scalars.append(ascii.begin(), ascii.end());
    text.remove_prefix(ascii.size());
    const std::string_view other = text.substr(0, runOf(text, false));
    if (!other.empty()) appendFolded(other, scalars);
    text.remove_prefix(other.size());
  }
  return scalars;
}

ScalarKind kindBeyondAscii(char32_t scalar) {
  const auto character = static_cast<UChar32>(scalar);
  if (u_isdigit(character) != 0) return ScalarKind::digit;
  if (u_isalpha(character) == 0) return ScalarKind::separator;
  for (const UScriptCode script :
       {USCRIPT_HAN, USCRIPT_HIRAGANA, USCRIPT_KATAKANA, USCRIPT_HANGUL}) {
    if (uscript_hasScript(character, script) != 0) return ScalarKind::ideograph;
  }
  if (u_isupper(character) != 0) return ScalarKind::capital;
  return u_islower(character) != 0 ? ScalarKind::small : ScalarKind::otherLetter;
}

std::string lowerCased(std::u32string_view scalars) {
  std::string text;
  if (std::all_of(scalars.begin(), scalars.end(), [](char32_t scalar) { return scalar < 0x80; })) {
    text.resize(scalars.size());
    std::transform(scalars.begin(), scalars.end(), text.begin(),
                   [](char32_t scalar) { return asciiLowerCase(static_cast<char>(scalar)); });
    return text;
  }
  icu::UnicodeString word;
  for (const char32_t scalar : scalars) word.append(static_cast<UChar32>(scalar));
  return word.toLower(icu::Locale::getRoot()).toUTF8String(text);
}

}  // namespace norvast
