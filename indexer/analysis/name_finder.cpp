#include "indexer/analysis/name_finder.h"

#include <algorithm>
#include <string>

#include "indexer/analysis/entity_patterns.h"
#include "language/function_words.h"
#include "language/name_words.h"
#include "text/unicode.h"

namespace norvast::indexer {
namespace {

constexpr std::size_t LONGEST_NAME_WORDS = 5;
constexpr std::size_t FEWEST_SINGLE_OCCURRENCES = 3;

// The J. in the middle of a name.
bool isInitial(const EntityWord& word) {
  return word.isClosed && letterCaseOf(word.text) == LetterCase::capital &&
         countClusters(word.text) == 1;
}

bool endsWithAny(std::string_view word, const std::vector<std::string_view>& endings) {
  return std::any_of(endings.begin(), endings.end(), [word](std::string_view ending) {
    return word.size() > ending.size() && word.ends_with(ending);
  });
}

bool isConnector(std::string_view word) { return rolesOf(word).has(WordRole::connector); }

std::size_t countOf(const std::unordered_map<std::string_view, std::size_t>& counts,
                    std::string_view word) {
  const auto found = counts.find(word);
  return found == counts.end() ? 0 : found->second;
}

}  // namespace

NameFinder::NameFinder(const Language& language)
    : language_(&language),
      languageBit_(bitOf(language)),
      adjectiveSuffixes_(wordsOf(language.adjectiveSuffixes)),
      adjectiveEndings_(wordsOf(language.adjectiveEndings)),
      abstractNounSuffixes_(wordsOf(language.abstractNounSuffixes)) {}

void NameFinder::learn(const EntityWords& line) {
  for (std::size_t at = 0; at < line.size(); ++at) {
    const EntityWord& word = line[at];
    const LetterCase letterCase = letterCaseOf(word.text);
    if (letterCase == LetterCase::small) small_.insert(word.text);
    if (letterCase != LetterCase::capital || word.opensSentence) continue;
    ++inner_[word.text];
    if (at == 0 || line[at - 1].isClosed) continue;
    const WordRoles& before = rolesOf(lowerCase(line[at - 1].text));
    if (before.has(WordRole::placePreposition, languageBit_)) ++placed_[word.text];
    if (before.has(WordRole::determiner, languageBit_)) determined_.insert(word.text);
  }
}

EntitySpan NameFinder::nameAt(const EntityWords& words, std::size_t at) const {
  EntitySpan span = runAt(words, at);
  if (span.count > 1 && (!mayOpenName(words, at) || standsBeforeName(words, span))) {
    do {
      span = {span.first + 1, span.count - 1};
    } while (span.count > 1 && isConnector(words[span.first].text));
  }
  if (span.count == 1) return isSingleName(words, span.first) ? span : EntitySpan();
  std::size_t doubtful = 0;
  std::size_t names = 0;
  for (std::size_t index = span.first; index < span.first + span.count; ++index) {
    const std::string_view word = words[index].text;
    if (isConnector(word) || isInitial(words[index])) continue;
    ++names;
    if (determined_.contains(word)) return {};
    if (isDoubtful(word)) ++doubtful;
  }
  return doubtful < names ? span : EntitySpan();
}

bool NameFinder::isNameWord(std::string_view word) const {
  if (!isCapitalised(word)) return false;
  const WordRoles& roles = rolesOf(word);
  if (roles.has(WordRole::month) || roles.has(WordRole::weekday) || roles.has(WordRole::title)) {
    return false;
  }
  return !isFunctionWordIn(word, languageBit_ | ENGLISH_BIT);
}

// Whether a capitalised word may have its capital for the sake of its place alone.
bool NameFinder::isDoubtful(std::string_view word) const {
  const std::string lower = lowerCase(word);
  return small_.contains(lower) || rolesOf(lower).has(WordRole::opener);
}

// By its suffix: grafische, zusätzlicher, virtuelles.
bool NameFinder::isAdjective(std::string_view word) const {
  return std::any_of(
      adjectiveEndings_.begin(), adjectiveEndings_.end(), [this, word](std::string_view ending) {
        return word.ends_with(ending) &&
               endsWithAny(word.substr(0, word.size() - ending.size()), adjectiveSuffixes_);
      });
}

bool NameFinder::mayOpenName(const EntityWords& words, std::size_t at) const {
  const EntityWord& word = words[at];
  if (!word.opensSentence) return true;
  return !isDoubtful(word.text) && !isAdjective(word.text);
}

// Whether the first word has its capital from the sentence, since the others are a name without it.
bool NameFinder::standsBeforeName(const EntityWords& words, const EntitySpan& span) const {
  return span.count > 2 && words[span.first].opensSentence &&
         !inner_.contains(words[span.first].text) && inner_.contains(words[span.first + 1].text);
}

// Whether a small word may stand within the name that began at `first`: an article only behind a
// preposition. German has "von" between any two nouns.
bool NameFinder::joins(const EntityWords& words, std::size_t first, std::size_t at) const {
  const std::string_view word = words[at].text;
  const WordRoles& roles = rolesOf(word);
  if (!roles.has(WordRole::connector)) return false;
  if (roles.has(WordRole::articleInNames)) return isConnector(words[at - 1].text);
  return !roles.has(WordRole::connectorOfNouns, languageBit_) || at > first + 1 ||
         (at + 1 < words.size() && rolesOf(words[at + 1].text).has(WordRole::articleInNames));
}

// Capitalised words, the inner ones perhaps connectors.
EntitySpan NameFinder::runAt(const EntityWords& words, std::size_t at) const {
  std::size_t count = 0;
  std::size_t end = 0;
  while (at + count < words.size() && count < LONGEST_NAME_WORDS) {
    const EntityWord& word = words[at + count];
    const bool isName = isNameWord(word.text);
    const bool isJoint = count > 0 && (joins(words, at, at + count) || isInitial(word));
    if (!isName && !isJoint) break;
    if (isName && count > 0 && word.opensSentence) break;
    ++count;
    if (isName) end = count;
    if (word.isClosed && !isInitial(word)) break;
  }
  return {at, end};
}

bool NameFinder::isSingleName(const EntityWords& words, std::size_t at) const {
  const std::string_view word = words[at].text;
  if (determined_.contains(word) || isDoubtful(word)) return false;
  const std::size_t inner = countOf(inner_, word);
  const std::size_t placed = countOf(placed_, word);
  if (language_->nounsHaveCapitals) {
    return placed * 2 > inner && !endsWithAny(word, abstractNounSuffixes_) &&
           !rolesOf(word).has(WordRole::placelessNoun, languageBit_);
  }
  return placed > 0 || inner >= FEWEST_SINGLE_OCCURRENCES;
}

}  // namespace norvast::indexer
