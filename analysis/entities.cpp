#include "analysis/entities.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "analysis/entity_patterns.h"
#include "analysis/text_blocks.h"
#include "embedding/function_words.h"
#include "text/unicode.h"

namespace norvast {
namespace {

constexpr std::size_t LEADING_BYTES = 100'000;
constexpr std::size_t LONGEST_NAME_WORDS = 5;
constexpr std::size_t FEWEST_PHONE_DIGITS = 7;

// A word of a line, bare of the punctuation around it.
struct Word {
  std::string_view text;
  bool opensSentence = false;
  bool isClosed = false;  // punctuation behind it: no name goes on
};

bool endsSentence(char character) {
  return character == '.' || character == '!' || character == '?' || character == ':';
}

std::vector<Word> wordsOf(std::string_view line) {
  constexpr std::string_view OPENING = "([{\"'<*_`“„‘«";
  constexpr std::string_view CLOSING = ".,;:!?)]}\"'>*_`”“’»";
  std::vector<Word> words;
  bool opensSentence = true;
  for (const std::string_view raw : wordsBetweenBlanks(line)) {
    const std::size_t first = raw.find_first_not_of(OPENING);
    const std::size_t last = raw.find_last_not_of(CLOSING);
    const bool isWord =
        first != std::string_view::npos && last != std::string_view::npos && first <= last;
    if (isWord) {
      words.push_back(
          {raw.substr(first, last - first + 1), opensSentence || first > 0, last + 1 < raw.size()});
    } else if (!words.empty()) {
      words.back().isClosed = true;
    }
    opensSentence = endsSentence(raw.back());
  }
  return words;
}

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

  bool knows(const std::string& entity) const { return counts_.contains(canonicalForm(entity)); }

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

using Words = std::vector<Word>;

std::string joined(const Words& words, std::size_t first, std::size_t count) {
  std::string text;
  for (std::size_t at = first; at < first + count; ++at) {
    if (!text.empty()) text += ' ';
    text += words[at].text;
  }
  return text;
}

// How many words from `at` are a date: 14 May 2026, May 14, 2026, May 2026. 0 when they are none.
std::size_t dateWords(const Words& words, std::size_t at) {
  const auto is = [&words](std::size_t index, bool (*test)(std::string_view)) {
    return index < words.size() && test(words[index].text);
  };
  if (is(at, isDayOfMonth) && is(at + 1, isMonth)) return is(at + 2, isYear) ? 3 : 2;
  if (is(at, isMonth) && is(at + 1, isDayOfMonth)) return is(at + 2, isYear) ? 3 : 2;
  return is(at, isMonth) && is(at + 1, isYear) ? 2 : 0;
}

// How many words from `at` are a telephone number: a + and digits, in groups. 0 when they are none.
std::size_t phoneWords(const Words& words, std::size_t at) {
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
std::size_t streetWords(const Words& words, std::size_t at) {
  const auto isNamed = [&words](std::size_t index) {
    return index < words.size() && isCapitalised(words[index].text);
  };
  if (isNamed(at) && isStreetWord(words[at].text) && !words[at].isClosed && at + 1 < words.size() &&
      isHouseNumber(words[at + 1].text)) {
    return 2;
  }
  if (!isHouseNumber(words[at].text) || words[at].isClosed || !isNamed(at + 1)) return 0;
  for (std::size_t end = at + 2; end < std::min(at + 4, words.size()) && isNamed(end); ++end) {
    if (isStreetWord(words[end].text)) return end + 1 - at;
  }
  return 0;
}

bool isConnector(std::string_view word) {
  for (const std::string_view connector :
       {"of", "the", "&", "and", "van", "von", "der", "de", "del", "di", "la"}) {
    if (word == connector) return true;
  }
  return false;
}

bool isTitle(std::string_view word) {
  return word == "Dr" || word == "Mr" || word == "Mrs" || word == "Ms" || word == "Prof";
}

bool isNameWord(std::string_view word) {
  return isCapitalised(word) && !isFunctionWord(lowerCase(word)) && !isMonth(word) &&
         !isTitle(word);
}

// How many words from `at` are a name: capitalised ones, the inner ones perhaps connectors. A
// connector that is as often a conjunction joins only what one before it began with "of" or "&".
std::size_t nameWords(const Words& words, std::size_t at) {
  std::size_t count = 0;
  std::size_t end = 0;
  while (at + count < words.size() && count < LONGEST_NAME_WORDS) {
    const Word& word = words[at + count];
    const bool isName = isNameWord(word.text);
    const bool isJoint = count > 0 && isConnector(word.text) && word.text != "and";
    if (!isName && !isJoint) break;
    if (isName && count > 0 && word.opensSentence) break;
    ++count;
    if (isName) end = count;
    if (word.isClosed) break;
  }
  return end;
}

bool followsPlaceWord(const Words& words, std::size_t at) {
  if (at == 0 || words[at - 1].isClosed) return false;
  const std::string before = lowerCase(words[at - 1].text);
  return before == "in" || before == "at" || before == "from" || before == "near";
}

// Where an entity begins and how many words it has, at most up to the end of the line; a count of 0
// says that none begins there.
struct Span {
  std::size_t first = 0;
  std::size_t count = 0;
};

class EntityFinder {
 public:
  explicit EntityFinder(std::string_view text) : lines_(linesOf(text)) {
    for (const std::string_view line : lines_) {
      for (const Word& word : wordsOf(line)) {
        if (letterCaseOf(word.text) == LetterCase::small) smallWords_.emplace(word.text);
      }
    }
  }

  std::vector<std::string> find() {
    for (const std::string_view line : lines_) {
      const bool mayHoldNames = !looksLikeProgram(line) && !line.starts_with('#');
      const Words words = wordsOf(line);
      for (std::size_t at = 0; at < words.size();) {
        const Span span = entityAt(words, at, mayHoldNames);
        if (span.count > 0) counter_.add(joined(words, span.first, span.count));
        at = span.count > 0 ? span.first + span.count : at + 1;
      }
    }
    return counter_.mostFrequent();
  }

 private:
  Span entityAt(const Words& words, std::size_t at, bool mayBeName) const {
    const std::string_view word = words[at].text;
    if (isEmailAddress(word) || isWebAddress(word) || isNumericDate(word)) return {at, 1};
    for (const auto find : {dateWords, phoneWords, streetWords}) {
      if (const std::size_t count = find(words, at); count > 0) return {at, count};
    }
    return mayBeName ? nameAt(words, at) : Span();
  }

  // The first word of a sentence has a capital in any case: it is no part of a name when the text
  // writes it small elsewhere, or when the rest is a name that is known already.
  Span nameAt(const Words& words, std::size_t at) const {
    Span span{at, nameWords(words, at)};
    if (span.count > 1 && words[at].opensSentence &&
        (smallWords_.contains(lowerCase(words[at].text)) ||
         counter_.knows(joined(words, at + 1, span.count - 1)))) {
      span = {at + 1, span.count - 1};
    }
    const bool isKnown = counter_.knows(joined(words, span.first, span.count));
    const bool isPlace =
        span.count == 1 && !words[span.first].opensSentence && followsPlaceWord(words, span.first);
    return span.count > 1 || isPlace || isKnown ? span : Span();
  }

  std::vector<std::string_view> lines_;
  std::unordered_set<std::string> smallWords_;
  EntityCounter counter_;
};

}  // namespace

std::vector<std::string> findEntities(std::string_view text) {
  return EntityFinder(firstClusters(text.substr(0, LEADING_BYTES), LEADING_BYTES)).find();
}

}  // namespace norvast
