#include "language/function_words.h"

#include <algorithm>
#include <unordered_map>

#include "language/function_word_lists.h"

namespace norvast {
namespace {

static_assert(function_word_lists::ALL.size() == LANGUAGES);

LanguageBits bit(std::size_t language) { return static_cast<LanguageBits>(1U << language); }

// Calls `visit` with each word of a list that blanks separate.
template <typename Visit>
void forEachWord(std::string_view list, Visit visit) {
  while (!list.empty()) {
    const std::size_t length = std::min(list.find(' '), list.size());
    if (length > 0) visit(list.substr(0, length));
    list.remove_prefix(std::min(length + 1, list.size()));
  }
}

class Lists {
 public:
  Lists() {
    for (std::size_t language = 0; language < LANGUAGES; ++language) {
      const auto& list = function_word_lists::ALL[language];
      forEachWord(list.everywhere,
                  [&](std::string_view word) { entry(word).everywhere |= bit(language); });
      forEachWord(list.inItsTextsAlone,
                  [&](std::string_view word) { entry(word).inItsTextsAlone |= bit(language); });
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

void FunctionWordCount::add(FunctionWord word, double count) {
  if (word.everywhere == 0) return;
  for (std::size_t language = 0; language < LANGUAGES; ++language) {
    if ((word.everywhere & bit(language)) != 0) counts_[language] += count;
  }
}

bool FunctionWordCount::holds(FunctionWord word) const {
  if (word.everywhere != 0) return true;
  if (word.inItsTextsAlone == 0) return false;
  for (std::size_t language = 0; language < LANGUAGES; ++language) {
    if ((word.inItsTextsAlone & bit(language)) != 0 && counts_[language] > counts_[0]) return true;
  }
  return false;
}

}  // namespace norvast
