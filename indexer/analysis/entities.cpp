#include "indexer/analysis/entities.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "indexer/analysis/entity_patterns.h"
#include "indexer/analysis/entity_words.h"
#include "indexer/analysis/lines.h"
#include "indexer/analysis/name_finder.h"
#include "language/name_words.h"
#include "text/ascii.h"
#include "text/unicode.h"

namespace norvast::indexer {
namespace {

constexpr std::size_t LEADING_BYTES = 100'000;
constexpr std::size_t FEWEST_PHONE_DIGITS = 7;
constexpr std::size_t MOST_WEB_ADDRESSES = 5;

bool isProgramSign(char character) {
  switch (character) {
    case '{':
    case '}':
    case '(':
    case ')':
    case ';':
    case '=':
    case '<':
    case '>':
    case '[':
    case ']':
    case '\\':
    case '|':
    case '_':
      return true;
    default:
      return false;
  }
}

bool looksLikeProgram(std::string_view line) {
  return std::any_of(line.begin(), line.end(), isProgramSign) ||
         std::count(line.begin(), line.end(), ',') > 5;
}

class EntityCounter {
 public:
  void add(std::string entity) {
    if (entity.find('\n') != std::string::npos) return;
    auto& [count, order, spelling] = counts_[canonicalForm(entity)];
    if (count++ == 0) {
      order = counts_.size();
      spelling = std::move(entity);
    }
  }

  std::vector<std::string> mostFrequent() {
    std::vector<Entry> entries;
    for (auto& entry : counts_) entries.push_back(std::move(entry.second));
    std::sort(entries.begin(), entries.end(), [](const Entry& left, const Entry& right) {
      return left.count != right.count ? left.count > right.count : left.order < right.order;
    });
    if (entries.size() > MOST_ENTITIES) entries.resize(MOST_ENTITIES);
    std::vector<std::string> entities;
    entities.reserve(entries.size());
    for (Entry& entry : entries) entities.push_back(std::move(entry.spelling));
    return entities;
  }

 private:
  struct Entry {
    std::size_t count = 0;
    std::size_t order = 0;  // of its first occurrence
    std::string spelling;
  };

  std::unordered_map<std::string, Entry> counts_;
};

// Listings of programs are full of short forms without a year.
bool isWrittenOut(std::string_view month) { return month.size() > 3; }

bool isMonth(std::string_view word) { return rolesOf(word).has(WordRole::month); }

// How many words from `at` are a date: 14 May 2026, May 14, 2026, May 2026, 14. Mai 2026, 14 de
// mayo de 2026. 0 when they are none.
std::size_t dateWords(const EntityWords& words, std::size_t at) {
  const auto is = [&words](std::size_t index, bool (*test)(std::string_view)) {
    return index < words.size() && test(words[index].text);
  };
  const auto skipOf = [&words](std::size_t index) {
    return index < words.size() && rolesOf(words[index].text).has(WordRole::datePreposition)
               ? index + 1
               : index;
  };
  if (is(at, isDayOfMonth)) {
    const std::size_t month = skipOf(at + 1);
    if (!is(month, isMonth)) return 0;
    const std::size_t year = skipOf(month + 1);
    if (is(year, isYear)) return year + 1 - at;
    return isWrittenOut(words[month].text) ? month + 1 - at : 0;
  }
  if (is(at + 1, isDayOfMonth) && is(at, isMonth)) {
    return is(at + 2, isYear) ? 3 : isWrittenOut(words[at].text) ? 2 : 0;
  }
  return is(at + 1, isYear) && is(at, isMonth) ? 2 : 0;
}

// How many words from `at` are a telephone number: a + and digits, in groups. 0 when they are none.
std::size_t phoneWords(const EntityWords& words, std::size_t at) {
  if (!words[at].text.starts_with('+')) return 0;
  std::size_t digits = 0;
  std::size_t count = 0;
  for (; at + count < words.size(); ++count) {
    const std::string_view text = words[at + count].text;
    if (text.find_first_not_of("+0123456789()-/.") != std::string_view::npos) break;
    digits += static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }));
    if (words[at + count].isClosed) {
      ++count;
      break;
    }
  }
  return digits >= FEWEST_PHONE_DIGITS ? count : 0;
}

// How many words from `at` are a street with its house number: Gartenstrasse 8, 12 Baker Street.
std::size_t streetWords(const EntityWords& words, std::size_t at) {
  const auto isNamed = [&words](std::size_t index) {
    return index < words.size() && isCapitalised(words[index].text);
  };
  if (!words[at].isClosed && at + 1 < words.size() && isHouseNumber(words[at + 1].text) &&
      isNamed(at) && isStreetWord(words[at].text)) {
    return 2;
  }
  if (!isHouseNumber(words[at].text) || words[at].isClosed || !isNamed(at + 1)) return 0;
  for (std::size_t end = at + 2; end < std::min(at + 4, words.size()) && isNamed(end); ++end) {
    if (isStreetWord(words[end].text)) return end + 1 - at;
  }
  return 0;
}

// Whether a line reads like a heading: numbered, or nearly every word of it has a capital. They
// tell nothing then.
bool readsAsHeading(const EntityWords& words) {
  std::size_t capital = 0;
  std::size_t small = 0;
  for (const EntityWord& word : words) {
    const LetterCase letterCase = letterCaseOf(word.text);
    if (letterCase == LetterCase::capital) ++capital;
    if (letterCase == LetterCase::small && word.text.size() > 3) ++small;
  }
  const bool isNumbered = !words.empty() && isAsciiDigit(words[0].text.front()) &&
                          words[0].text.find('.') != std::string_view::npos && words.size() < 12;
  const bool isSentence = !words.empty() && words.back().isClosed;
  return isNumbered || (!isSentence && capital > 3 && small * 4 < capital);
}

// A line of the text, or the cell of a table.
struct Line {
  EntityWords words;
  bool mayHoldNames = false;
};

class EntityFinder {
 public:
  EntityFinder(const Outline& outline, const Language& language) : names_(language) {
    takeLine(outline.author, true);
    for (const Stretch& stretch : outline.stretches) {
      if (stretch.start >= LEADING_BYTES) break;
      takeStretch(outline.textOf(stretch).substr(0, LEADING_BYTES - stretch.start), stretch.kind);
    }
  }

  std::vector<std::string> find() {
    for (const Line& line : lines_) {
      for (std::size_t at = 0; at < line.words.size();) {
        const std::string_view address = webAddressIn(line.words[at].text);
        if (!address.empty()) {
          if (addresses_++ < MOST_WEB_ADDRESSES) counter_.add(std::string(address));
          ++at;
          continue;
        }
        const EntitySpan span = entityAt(line.words, at, line.mayHoldNames);
        if (span.count > 0) counter_.add(joined(line.words, span.first, span.count));
        at = span.count > 0 ? span.first + span.count : at + 1;
      }
    }
    return counter_.mostFrequent();
  }

 private:
  // The first row of a table names its columns.
  void takeStretch(std::string_view text, Stretch::Kind kind) {
    const bool isRow = kind == Stretch::Kind::tableRow;
    const bool isFirstRow = isRow && last_ != Stretch::Kind::tableRow;
    const bool mayHoldNames = kind != Stretch::Kind::heading && kind != Stretch::Kind::part &&
                              kind != Stretch::Kind::code && !isFirstRow;
    last_ = kind;
    for (const std::string_view line : linesOf(text)) {
      for (std::size_t start = 0; start <= line.size();) {
        const std::size_t end = isRow ? std::min(line.find('\t', start), line.size()) : line.size();
        takeLine(line.substr(start, end - start), mayHoldNames);
        start = end + 1;
      }
    }
  }

  void takeLine(std::string_view line, bool mayHoldNames) {
    Line taken{entityWordsOf(line), mayHoldNames && !looksLikeProgram(line)};
    taken.mayHoldNames = taken.mayHoldNames && !readsAsHeading(taken.words);
    names_.learn(taken.words);
    lines_.push_back(std::move(taken));
  }

  EntitySpan entityAt(const EntityWords& words, std::size_t at, bool mayBeName) const {
    const std::string_view word = words[at].text;
    if (isEmailAddress(word) || isNumericDate(word)) return {at, 1};
    for (const auto find : {dateWords, phoneWords, streetWords}) {
      if (const std::size_t count = find(words, at); count > 0) return {at, count};
    }
    return mayBeName ? names_.nameAt(words, at) : EntitySpan();
  }

  NameFinder names_;
  std::vector<Line> lines_;
  Stretch::Kind last_ = Stretch::Kind::prose;
  std::size_t addresses_ = 0;
  EntityCounter counter_;
};

}  // namespace

std::vector<std::string> findEntities(const Outline& outline, const Language& language) {
  return EntityFinder(outline, language).find();
}

}  // namespace norvast::indexer
