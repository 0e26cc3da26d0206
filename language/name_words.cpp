#include "language/name_words.h"

#include <algorithm>
#include <unordered_map>

namespace norvast {
namespace {

struct RoleList {
  WordRole role;
  std::string_view Language::*words;
};

constexpr std::array<RoleList, WORD_ROLES> LISTS = {{
    {WordRole::month, &Language::months},
    {WordRole::weekday, &Language::weekdays},
    {WordRole::datePreposition, &Language::datePrepositions},
    {WordRole::title, &Language::titles},
    {WordRole::opener, &Language::openers},
    {WordRole::connector, &Language::connectors},
    {WordRole::articleInNames, &Language::articlesInNames},
    {WordRole::connectorOfNouns, &Language::connectorsOfNouns},
    {WordRole::placePreposition, &Language::placePrepositions},
    {WordRole::determiner, &Language::determiners},
    {WordRole::placelessNoun, &Language::placelessNouns},
    {WordRole::street, &Language::streets},
}};

class Table {
 public:
  Table() {
    for (std::size_t place = 0; place < LANGUAGES.size(); ++place) {
      for (const RoleList& list : LISTS) {
        for (const std::string_view word : wordsOf(LANGUAGES[place]->*list.words)) {
          words_[word].add(list.role, languageBit(place));
          longest_ = std::max(longest_, word.size());
        }
      }
    }
  }

  const WordRoles& find(std::string_view word) const {
    static constexpr WordRoles NONE;
    if (word.size() > longest_) return NONE;
    const auto found = words_.find(word);
    return found == words_.end() ? NONE : found->second;
  }

 private:
  std::unordered_map<std::string_view, WordRoles> words_;
  std::size_t longest_ = 0;  // bytes; a longer word needs no hash to be known as none of them
};

}  // namespace

const WordRoles& rolesOf(std::string_view word) {
  static const Table TABLE;
  return TABLE.find(word);
}

}  // namespace norvast
