#include "indexer/analysis/entity_words.h"

#include <algorithm>
#include <array>

#include "indexer/analysis/lines.h"
#include "language/languages.h"
#include "text/ascii.h"
#include "text/byte_set.h"
#include "text/unicode.h"

namespace norvast::indexer {
namespace {

constexpr ByteSet OPENING("([{\"'<*_`");
constexpr ByteSet CLOSING(".,;:!?)]}\"'>*_`");
constexpr std::array<std::string_view, 7> WIDE_QUOTES = {"„", "“", "”", "‘", "’", "«", "»"};

// How many bytes of punctuation a text begins, or ends, with.
std::size_t openingLength(std::string_view text) {
  std::size_t length = 0;
  for (bool isOn = true; isOn && length < text.size();) {
    const std::string_view rest = text.substr(length);
    isOn = OPENING.contains(rest.front());
    if (isOn) ++length;
    if (isAsciiByte(rest.front())) continue;
    for (const std::string_view quote : WIDE_QUOTES) {
      if (!isOn && rest.starts_with(quote)) length += quote.size(), isOn = true;
    }
  }
  return length;
}

std::size_t closingLength(std::string_view text) {
  std::size_t length = 0;
  for (bool isOn = true; isOn && length < text.size();) {
    const std::string_view rest = text.substr(0, text.size() - length);
    isOn = CLOSING.contains(rest.back());
    if (isOn) ++length;
    if (isAsciiByte(rest.back())) continue;
    for (const std::string_view quote : WIDE_QUOTES) {
      if (!isOn && rest.ends_with(quote)) length += quote.size(), isOn = true;
    }
  }
  return length;
}

bool endsSentence(std::string_view raw) {
  static constexpr ByteSet ENDS(".!?:");
  return ENDS.contains(raw.back()) || raw == "-" || raw == "*" || raw == "•" || raw == "–" ||
         raw == "—";
}

// The length of an article that an apostrophe joins to a word: l', d', dell'.
std::size_t articleLength(std::string_view word) {
  static constexpr ByteSet MARKS("'\xE2");
  const std::size_t end = MARKS.firstIn(word);
  if (end == 0 || end == word.size() || end > 5) return 0;
  const std::size_t mark = word[end] == '\'' ? 1 : word.substr(end).starts_with("’") ? 3 : 0;
  if (mark == 0 || letterCaseOf(word.substr(end + mark)) == LetterCase::none) return 0;
  const std::string article = asciiLowerCase(word.substr(0, end));
  static const std::vector<std::string_view> ELIDED = wordsOfAll(&Language::elidedWords);
  return std::find(ELIDED.begin(), ELIDED.end(), article) == ELIDED.end() ? 0 : end + mark;
}

std::string_view withoutPossessive(std::string_view word) {
  static const std::vector<std::string_view> ENDINGS = wordsOfAll(&Language::possessiveEndings);
  for (const std::string_view ending : ENDINGS) {
    if (word.size() > ending.size() && word.ends_with(ending)) word.remove_suffix(ending.size());
  }
  return word;
}

}  // namespace

EntityWords entityWordsOf(std::string_view line) {
  EntityWords words;
  bool opensSentence = true;
  for (const std::string_view raw : wordsBetweenBlanks(line)) {
    const std::size_t opening = openingLength(raw);
    const std::size_t closing = closingLength(raw.substr(opening));
    std::string_view bare = raw.substr(opening, raw.size() - opening - closing);
    if (!bare.empty()) {
      const std::size_t article = articleLength(bare);
      bare = withoutPossessive(bare.substr(article));
      const bool opens = article == 0 && (opensSentence || opening > 0);
      words.push_back({bare, opens, bare.data() + bare.size() < raw.data() + raw.size()});
    } else if (!words.empty()) {
      words.back().isClosed = true;
    }
    opensSentence = endsSentence(raw);
  }
  return words;
}

std::string joined(const EntityWords& words, std::size_t first, std::size_t count) {
  std::string text;
  for (std::size_t at = first; at < first + count; ++at) {
    if (!text.empty()) text += ' ';
    text += words[at].text;
  }
  return text;
}

}  // namespace norvast::indexer
