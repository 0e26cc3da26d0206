// Name finder: the names of people, places and organisations in the lines of one text.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "indexer/analysis/entity_words.h"
#include "language/languages.h"

namespace norvast::indexer {

// Where an entity begins and how many words it has, at most up to the end of the line; a count of 0
// says that none begins there.
struct EntitySpan {
  std::size_t first = 0;
  std::size_t count = 0;
};

// First learns from all lines how the text writes its words, then tells names: runs of two or more
// capitalised words, and single ones that follow a preposition of place or that the text always
// writes with a capital, three times or more within sentences. A word that begins a sentence counts
// when the text gives no reason to doubt it: it is not written small elsewhere, is no function word
// and nothing that sentences begin with. In German, where all nouns have capitals, words that
// follow an article anywhere are none, nor is an adjective that begins a sentence. Rather one is
// missed than a stray word taken.
class NameFinder {
 public:
  explicit NameFinder(const Language& language);

  // The words must outlive this.
  void learn(const EntityWords& line);

  // The name that begins at the word `at`, or one word behind it.
  EntitySpan nameAt(const EntityWords& words, std::size_t at) const;

 private:
  bool isNameWord(std::string_view word) const;
  bool isDoubtful(std::string_view word) const;
  bool isAdjective(std::string_view word) const;
  bool mayOpenName(const EntityWords& words, std::size_t at) const;
  bool standsBeforeName(const EntityWords& words, const EntitySpan& span) const;
  bool joins(const EntityWords& words, std::size_t first, std::size_t at) const;
  bool isSingleName(const EntityWords& words, std::size_t at) const;
  EntitySpan runAt(const EntityWords& words, std::size_t at) const;

  const Language* language_;
  LanguageBits languageBit_;
  std::vector<std::string_view> adjectiveSuffixes_;
  std::vector<std::string_view> adjectiveEndings_;
  std::vector<std::string_view> abstractNounSuffixes_;
  std::unordered_set<std::string_view> small_;               // words written without a capital
  std::unordered_set<std::string_view> determined_;          // nouns, by the determiner before them
  std::unordered_map<std::string_view, std::size_t> inner_;  // capitalised within sentences
  std::unordered_map<std::string_view, std::size_t>
      placed_;  // of these, behind a place preposition
};

}  // namespace norvast::indexer
