#include "language/function_words.h"

#include <algorithm>
#include <unordered_map>

#include "text/unicode.h"

namespace norvast {
namespace {

class Lists {
 public:
  Lists() {
    for (std::size_t place = 0; place < LANGUAGES.size(); ++place) {
      const Language& language = *LANGUAGES[place];
      for (const std::string_view word : wordsOf(language.functionWords)) {
        entry(word).everywhere |= languageBit(place);
      }
      for (const std::string_view word : wordsOf(language.functionWordsInItsTextsAlone)) {
        entry(word).inItsTextsAlone |= languageBit(place);
      }
    }
  }

  FunctionWord find(std::string_view word) const {
    if (word.size() > longest_) return {};
    const auto found = words_.find(word);
    return found == words_.end() ? FunctionWord() : found->second;
  }

 private:
  FunctionWord& entry(std::string_view word) {
    longest_ = std::max(longest_, word.size());
    return words_[word];
  }

  std::unordered_map<std::string_view, FunctionWord> words_;
  std::size_t longest_ = 0;
};

}  // namespace

FunctionWord functionWord(std::string_view word) {
  static const Lists LISTS;
  return LISTS.find(word);
}

bool isFunctionWordIn(std::string_view word, LanguageBits languages) {
  const FunctionWord found = functionWord(foldDiacritics(lowerCase(word)));
  return ((found.everywhere | found.inItsTextsAlone) & languages) != 0;
}

void FunctionWordCount::add(FunctionWord word, double count) {
  if (word.everywhere == 0) return;
  for (std::size_t language = 0; language < LANGUAGES.size(); ++language) {
    if ((word.everywhere & languageBit(language)) != 0) counts_[language] += count;
  }
}

bool FunctionWordCount::holds(FunctionWord word) const {
  if (word.everywhere != 0) return true;
  if (word.inItsTextsAlone == 0) return false;
  for (std::size_t language = 0; language < LANGUAGES.size(); ++language) {
    if ((word.inItsTextsAlone & languageBit(language)) != 0 && counts_[language] > counts_[0])
      return true;
  }
  return false;
}

}  // namespace norvast
