#include "embedding/english_function_words.h"

#include <algorithm>
#include <array>

namespace norvast {
namespace {

// clang-format off
constexpr auto WORDS = [] {
  std::array words = std::to_array<std::string_view>({
      // articles and determiners
      "a", "an", "the", "this", "that", "these", "those", "each", "every", "either", "neither",
      "some", "any", "no", "all", "both", "few", "many", "much", "more", "most", "other",
      "another", "such", "several", "own", "same", "enough",
      // pronouns
      "i", "me", "my", "mine", "myself", "we", "us", "our", "ours", "ourselves", "you", "your",
      "yours", "yourself", "yourselves", "he", "him", "his", "himself", "she", "her", "hers",
      "herself", "it", "its", "itself", "they", "them", "their", "theirs", "themselves", "one",
      "ones", "someone", "somebody", "something", "anyone", "anybody", "anything", "everyone",
      "everybody", "everything", "nobody", "nothing", "none",
      // prepositions
      "about", "above", "across", "after", "against", "along", "among", "around", "as", "at",
      "before", "behind", "below", "beneath", "beside", "besides", "between", "beyond", "by",
      "concerning", "despite", "down", "during", "except", "for", "from", "in", "inside", "into",
      "like", "near", "of", "off", "on", "onto", "out", "outside", "over", "per", "regarding",
      "since", "through", "throughout", "till", "to", "toward", "towards", "under", "until", "up",
      "upon", "via", "with", "within", "without",
      // conjunctions
      "and", "or", "but", "nor", "so", "yet", "if", "then", "else", "than", "because", "although",
      "though", "while", "whereas", "unless", "whether",
      // auxiliaries
      "am", "is", "are", "was", "were", "be", "been", "being", "do", "does", "did", "doing",
      "done", "have", "has", "had", "having", "can", "could", "may", "might", "must", "shall",
      "should", "will", "would", "ought", "cannot", "get", "gets", "got", "let", "lets",
      // question words
      "who", "whom", "whose", "what", "which", "when", "where", "why", "how", "whatever",
      "whichever", "whoever", "wherever", "whenever", "however",
      // adverbs
      "not", "too", "very", "also", "just", "only", "even", "still", "again", "ever", "never",
      "always", "often", "once", "here", "there", "now", "quite", "rather", "really", "almost",
      "already", "perhaps", "maybe", "thus", "hence", "therefore", "away", "back",
      // remains of contractions
      "s", "t", "d", "m", "ll", "re", "ve", "don", "doesn", "didn", "isn", "aren", "wasn",
      "weren", "hasn", "haven", "hadn", "won", "wouldn", "couldn", "shouldn", "mustn", "ain",
      "im", "dont",
      // requests
      "please", "show", "tell", "give", "find", "list", "explain", "describe", "want", "need",
      "know", "say", "says", "said",
  });
  std::sort(words.begin(), words.end());
  return words;
}();
// clang-format on

}  // namespace

bool isFunctionWord(std::string_view word) {
  return std::binary_search(WORDS.begin(), WORDS.end(), word);
}

}  // namespace norvast
