// Entity words: the words of a line as entities are made of them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace norvast::indexer {

// A word of a line, bare of the punctuation around it, of the article before an apostrophe
// (l'Europe gives Europe) and of 's behind it.
struct EntityWord {
  std::string_view text;
  bool opensSentence = false;
  bool isClosed = false;  // punctuation behind it: no name goes on
};

using EntityWords = std::vector<EntityWord>;

EntityWords entityWordsOf(std::string_view line);

// `count` words from `first` on, separated by blanks.
std::string joined(const EntityWords& words, std::size_t first, std::size_t count);

}  // namespace norvast::indexer
