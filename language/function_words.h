// Function words: words that hold a sentence together and say little of its subject.
#pragma once

#include <array>
#include <string_view>

#include "language/languages.h"

namespace norvast {

// In which languages a word is a function word: an article, a pronoun, a preposition, a
// conjunction, an auxiliary, a question word, an adverb of degree, the remains of a contraction
// (don, t, ll; French qu), or a word by which one asks for something (please, show).
struct FunctionWord {
  LanguageBits everywhere = 0;       // one in any text
  LanguageBits inItsTextsAlone = 0;  // a content word of English too, as "die" and "war"
};

// `word` is in lower case and without marks, as `weighedWords` gives them.
FunctionWord functionWord(std::string_view word);

// True if a word, in any case and with its diacritics, is a function word in texts of one of the
// languages.
bool isFunctionWordIn(std::string_view word, LanguageBits languages);

// Counts the function words of a text by language, and tells which of its words are function words.
class FunctionWordCount {
 public:
  void add(FunctionWord word, double count = 1);

  // True when the word is a function word in this text: in any, or in a language of which this text
  // has more function words than of English.
  bool holds(FunctionWord word) const;

 private:
  std::array<double, LANGUAGES.size()> counts_{};
};

}  // namespace norvast
