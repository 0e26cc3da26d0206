// Function words: words that hold a sentence together and say little of its subject.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace norvast {

enum class Language : std::uint8_t { english, german, french, spanish, italian, portuguese, dutch };
inline constexpr std::size_t LANGUAGES = 7;

// Languages, one bit each: 1 << Language.
using LanguageBits = std::uint8_t;

// In which languages a word is a function word: an article, a pronoun, a preposition, a
// conjunction, an auxiliary, a question word, an adverb of degree, the remains of a contraction
// (don, t, ll; French qu), or a word by which one asks for something (please, show).
struct FunctionWord {
  LanguageBits everywhere = 0;       // one in any text
  LanguageBits inItsTextsAlone = 0;  // a content word of English too, as "die" and "war"
};

// `word` is in lower case and without marks, as `weighedWords` gives them.
FunctionWord functionWord(std::string_view word);

// Counts the function words of a text by language, and tells which of its words are function words.
class FunctionWordCount {
 public:
  void add(FunctionWord word, double count = 1);

  // True when the word is a function word in this text: in any, or in a language of which this text
  // has more function words than of English.
  bool holds(FunctionWord word) const;

 private:
  std::array<double, LANGUAGES> counts_{};
};

}  // namespace norvast
