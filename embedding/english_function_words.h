// English function words: words that hold a sentence together and say little of its subject.
#pragma once

#include <string_view>

namespace norvast {

// Articles, pronouns, prepositions, conjunctions, auxiliaries, question words, adverbs of degree,
// the remains of contractions (don, t, ll), and words by which one asks for something (please,
// show). `word` is in lower case.
bool isFunctionWord(std::string_view word);

}  // namespace norvast
