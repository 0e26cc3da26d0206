// Name words: which part single words play in names and dates, in the languages of the analysis.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "language/languages.h"

namespace norvast {

// Named after the lists of `Language`, which say what each is.
enum class WordRole : std::uint8_t {
  month,
  weekday,
  datePreposition,
  title,
  opener,
  connector,
  articleInNames,
  connectorOfNouns,
  placePreposition,
  determiner,
  placelessNoun,
  street,
};
inline constexpr std::size_t WORD_ROLES = 12;

// The languages in which a word has each role.
class WordRoles {
 public:
  void add(WordRole role, LanguageBits languages) { languages_[indexOf(role)] |= languages; }

  bool has(WordRole role, LanguageBits languages = ~LanguageBits{0}) const {
    return (languages_[indexOf(role)] & languages) != 0;
  }

 private:
  static constexpr std::size_t indexOf(WordRole role) { return static_cast<std::size_t>(role); }

  std::array<LanguageBits, WORD_ROLES> languages_{};
};

// The roles of a word, in the case in which the lists have it; none for a word of no list.
const WordRoles& rolesOf(std::string_view word);

}  // namespace norvast
