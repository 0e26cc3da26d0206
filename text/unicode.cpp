#include "text/unicode.h"

#include <unicode/brkiter.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "text/ascii.h"
#include "text/utf8.h"

namespace norvast {
namespace {

// The bytes of the simple character at `at`: one below U+0300 or from U+2010 to U+20CF, none of
// which joins a neighbour that is simple too, but for a carriage return and line feed (rule GB3). 0
// for any other character and at the end.
std::size_t simpleLength(std::string_view text, std::size_t at) {
  const auto byte = [text, at](std::size_t offset) {
    return at + offset < text.size() ? static_cast<unsigned char>(text[at + offset]) : 0;
  };
  const int lead = byte(0);
  if (lead < 0x80) return at == text.size() ? 0 : lead == '\r' && byte(1) == '\n' ? 2 : 1;
  if (lead >= 0xC2 && lead <= 0xCB && byte(1) >= 0x80) return 2;
  const bool isSimple = lead == 0xE2 && byte(2) >= 0x80 &&
                        ((byte(1) == 0x80 && byte(2) >= 0x90) || byte(1) == 0x81 ||
                         byte(1) == 0x82 || (byte(1) == 0x83 && byte(2) <= 0x8F));
  return isSimple ? 3 : 0;
}

struct CloseText {
  void operator()(UText* text) const { utext_close(text); }
};

// One iterator serves all: making one takes longer than walking most texts.
icu::BreakIterator* clusterBoundaries() {
  UErrorCode status = U_ZERO_ERROR;
  static const std::unique_ptr<icu::BreakIterator> BOUNDARIES(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  return BOUNDARIES.get();
}

// By the rules of UAX #29, from a boundary on.
template <typename Visit>
void walkByRules(std::string_view text, std::size_t start, Visit visit) {
  UErrorCode status = U_ZERO_ERROR;
  icu::BreakIterator* boundaries = clusterBoundaries();
  const std::unique_ptr<UText, CloseText> source(utext_openUTF8(
      nullptr, text.data() + start, static_cast<std::int64_t>(text.size() - start), &status));
  if (boundaries != nullptr) boundaries->setText(source.get(), status);
  if (boundaries == nullptr || U_FAILURE(status) != 0) return;
  for (std::int32_t end = boundaries->next(); end != icu::BreakIterator::DONE;
       end = boundaries->next()) {
    if (!visit(start + static_cast<std::size_t>(end))) return;
  }
}

// Calls `visit` with the end of each cluster, in bytes, until it answers false. A simple character
// ends a cluster when what follows it is simple; else the rules go on from it, as nothing before it
// bears on them.
template <typename Visit>
void walk(std::string_view text, Visit visit) {
  std::size_t start = 0;
  for (std::size_t length = simpleLength(text, 0); length > 0;) {
    const std::size_t end = start + length;
    length = simpleLength(text, end);
    if (length == 0 && end < text.size()) break;
    if (!visit(end)) return;
    start = end;
  }
  if (start < text.size()) walkByRules(text, start, visit);
}

icu::UnicodeString utf16(std::string_view text) {
  return icu::UnicodeString::fromUTF8(
      icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

// Normalization Form D. ICU's own takes time quadratic in the marks behind one letter, and whoever
// writes a text may put a million of them there.
icu::UnicodeString decompose(const icu::Normalizer2& decomposer, const icu::UnicodeString& text) {
  struct Scalar {
    UChar32 character;
    std::uint8_t combiningClass;
  };
  icu::UnicodeString ordered;
  icu::UnicodeString mapping;
  std::vector<Scalar> marks;  // of the letter before them
  const auto endMarks = [&] {
    std::stable_sort(marks.begin(), marks.end(), [](const Scalar& left, const Scalar& right) {
      return left.combiningClass < right.combiningClass;
    });
    for (const Scalar& mark : marks) ordered.append(mark.character);
    marks.clear();
  };
  const auto append = [&](UChar32 character) {
    const std::uint8_t combiningClass = u_getCombiningClass(character);
    if (combiningClass != 0) return marks.push_back({character, combiningClass});
    endMarks();
    ordered.append(character);
  };
  for (std::int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
    const UChar32 character = text.char32At(at);
    if (decomposer.getDecomposition(character, mapping) == 0) {
      append(character);
      continue;
    }
    for (std::int32_t part = 0; part < mapping.length(); part = mapping.moveIndex32(part, 1)) {
      append(mapping.char32At(part));
    }
  }
  endMarks();
  return ordered;
}

// Whether marks behind this character are diacritics that can be taken off it.
bool takesDiacritics(UChar32 base) {
  return uscript_hasScript(base, USCRIPT_LATIN) != 0 ||
         uscript_hasScript(base, USCRIPT_GREEK) != 0 ||
         uscript_hasScript(base, USCRIPT_CYRILLIC) != 0;
}

// Below 0 when there is none, or it is not valid UTF-8.
UChar32 firstScalar(std::string_view text) {
  if (text.empty()) return U_SENTINEL;
  const auto* units = reinterpret_cast<const std::uint8_t*>(text.data());
  UChar32 first = 0;
  U8_GET(units, 0, 0, static_cast<std::int32_t>(text.size()), first);
  return first;
}

}  // namespace

std::size_t countClusters(std::string_view text) {
  std::size_t clusters = 0;
  walk(text, [&clusters](std::size_t /*end*/) {
    ++clusters;
    return true;
  });
  return clusters;
}

std::string_view firstClusters(std::string_view text, std::size_t limit) {
  std::size_t clusters = 0;
  std::size_t bytes = 0;
  if (limit == 0) return {};
  walk(text, [&](std::size_t end) {
    bytes = end;
    return ++clusters < limit;
  });
  return text.substr(0, bytes);
}

void forEachCluster(std::string_view text, const std::function<void(std::string_view)>& visit) {
  std::size_t start = 0;
  walk(text, [&](std::size_t end) {
    visit(text.substr(start, end - start));
    start = end;
    return true;
  });
}

std::string canonicalForm(std::string_view text) {
  std::string form;
  if (isAscii(text)) return form.assign(text);

  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* decomposer = icu::Normalizer2::getNFDInstance(status);
  const icu::Normalizer2* composer = icu::Normalizer2::getNFCInstance(status);
  if (U_FAILURE(status) != 0) return form.assign(text);

  const icu::UnicodeString source = utf16(text);
  if (composer->spanQuickCheckYes(source, status) == source.length()) return form.assign(text);
  const icu::UnicodeString composed = composer->normalize(decompose(*decomposer, source), status);
  if (U_FAILURE(status) != 0) return form.assign(text);
  return composed.toUTF8String(form);
}

std::string lowerCase(std::string_view text) {
  std::string lower;
  if (isAscii(text)) return asciiLowerCase(text);
  return utf16(text).toLower(icu::Locale::getRoot()).toUTF8String(lower);
}

std::string foldDiacritics(std::string_view text) {
  std::string folded;
  if (isAscii(text)) return folded.assign(text);

  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* decomposer = icu::Normalizer2::getNFDInstance(status);
  const icu::Normalizer2* composer = icu::Normalizer2::getNFCInstance(status);
  if (U_FAILURE(status) != 0) return folded.assign(text);

  const icu::UnicodeString decomposed = decompose(*decomposer, utf16(text));
  icu::UnicodeString bare;
  bool isBehindLetter = false;
  for (std::int32_t at = 0; at < decomposed.length(); at = decomposed.moveIndex32(at, 1)) {
    const UChar32 character = decomposed.char32At(at);
    const bool isMark = u_charType(character) == U_NON_SPACING_MARK;
    if (!isMark) isBehindLetter = takesDiacritics(character);
    if (!isMark || !isBehindLetter) bare.append(character);
  }
  const icu::UnicodeString composed = composer->normalize(bare, status);
  if (U_FAILURE(status) != 0) return folded.assign(text);
  return composed.toUTF8String(folded);
}

bool isLetterOrNumber(std::string_view cluster) {
  const UChar32 first = firstScalar(cluster);
  if (first < 0x80) return first >= 0 && isAsciiAlphanumeric(static_cast<char>(first));
  return first >= 0 && (u_isUAlphabetic(first) != 0 ||
                        u_getIntPropertyValue(first, UCHAR_NUMERIC_TYPE) != U_NT_NONE);
}

bool hasLetterOrNumber(std::string_view text) {
  bool isFound = false;
  std::size_t start = 0;
  walk(text, [&](std::size_t end) {
    isFound = isLetterOrNumber(text.substr(start, end - start));
    start = end;
    return !isFound;
  });
  return isFound;
}

LetterCase letterCaseOf(std::string_view cluster) {
  const UChar32 first = firstScalar(cluster);
  if (first < 0x80) {  // most there is, by far
    if (first >= 'a' && first <= 'z') return LetterCase::small;
    return first >= 'A' && first <= 'Z' ? LetterCase::capital : LetterCase::none;
  }
  if (u_isupper(first) != 0) return LetterCase::capital;
  return u_islower(first) != 0 ? LetterCase::small : LetterCase::none;
}

}  // namespace norvast
