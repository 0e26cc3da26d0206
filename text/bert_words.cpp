#include "text/bert_words.h"

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <utility>

namespace norvast {
namespace {

constexpr std::uint32_t CONTROLS = U_GC_CC_MASK | U_GC_CF_MASK | U_GC_CN_MASK | U_GC_CO_MASK;

bool isDropped(UChar32 scalar) {
  if (scalar == '\t' || scalar == '\n' || scalar == '\r') return false;
  return scalar == 0xFFFD || (U_GET_GC_MASK(scalar) & CONTROLS) != 0;
}

// The blocks of ideographs that BERT's own tokenizer names; neither kana nor hangul are there.
bool isIdeograph(UChar32 scalar) {
  constexpr std::pair<UChar32, UChar32> BLOCKS[] = {
      {0x4E00, 0x9FFF},   {0x3400, 0x4DBF},   {0x20000, 0x2A6DF}, {0x2A700, 0x2B73F},
      {0x2B740, 0x2B81F}, {0x2B920, 0x2CEAF}, {0xF900, 0xFAFF},   {0x2F800, 0x2FA1F}};
  for (const auto& [first, last] : BLOCKS) {
    if (scalar >= first && scalar <= last) return true;
  }
  return false;
}

bool isPunctuation(UChar32 scalar) {
  if (scalar < 0x80) return scalar > ' ' && scalar < 0x7F && u_isalnum(scalar) == 0;
  return (U_GET_GC_MASK(scalar) & U_GC_P_MASK) != 0;
}

bool isNonspacingMark(UChar32 scalar) { return (U_GET_GC_MASK(scalar) & U_GC_MN_MASK) != 0; }

template <typename Change>
icu::UnicodeString changed(const icu::UnicodeString& text, Change change) {
  icu::UnicodeString result;
  for (std::int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
    change(text.char32At(at), result);
  }
  return result;
}

icu::UnicodeString cleaned(const icu::UnicodeString& text, const BertNormalization& options) {
  return changed(text, [&](UChar32 scalar, icu::UnicodeString& result) {
    if (options.cleanText && isDropped(scalar)) return;
    if (options.cleanText && u_isUWhiteSpace(scalar) != 0) scalar = ' ';
    const bool isWord = options.handleChineseChars && isIdeograph(scalar);
    if (isWord) result.append(u' ');
    result.append(scalar);
    if (isWord) result.append(u' ');
  });
}

icu::UnicodeString withoutNonspacingMarks(const icu::UnicodeString& text) {
  return changed(text, [](UChar32 scalar, icu::UnicodeString& result) {
    if (!isNonspacingMark(scalar)) result.append(scalar);
  });
}

// Marks that are there from the start go first: a decomposition would put them in order, in time
// quadratic in the marks behind one letter.
icu::UnicodeString withoutAccents(const icu::UnicodeString& text) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* decomposer = icu::Normalizer2::getNFDInstance(status);
  if (U_FAILURE(status) != 0) return text;
  const icu::UnicodeString decomposed = decomposer->normalize(withoutNonspacingMarks(text), status);
  return U_FAILURE(status) != 0 ? text : withoutNonspacingMarks(decomposed);
}

icu::UnicodeString normalized(std::string_view bytes, const BertNormalization& options) {
  icu::UnicodeString text = icu::UnicodeString::fromUTF8(
      icu::StringPiece(bytes.data(), static_cast<std::int32_t>(bytes.size())));
  text = cleaned(text, options);
  if (options.stripAccents) text = withoutAccents(text);
  if (options.lowercase) text.toLower(icu::Locale::getRoot());
  return text;
}

}  // namespace

std::vector<std::string> bertWords(std::string_view bytes, const BertNormalization& options) {
  const icu::UnicodeString text = normalized(bytes, options);
  std::vector<std::string> words;
  std::int32_t start = 0;
  const auto addWord = [&](std::int32_t end) {
    if (end > start) text.tempSubStringBetween(start, end).toUTF8String(words.emplace_back());
    start = end;
  };
  for (std::int32_t at = 0; at < text.length();) {
    const UChar32 scalar = text.char32At(at);
    const std::int32_t next = text.moveIndex32(at, 1);
    if (u_isUWhiteSpace(scalar) != 0) {
      addWord(at);
      start = next;
    } else if (isPunctuation(scalar)) {
      addWord(at);
      addWord(next);
    }
    at = next;
  }
  addWord(text.length());
  return words;
}

}  // namespace norvast
