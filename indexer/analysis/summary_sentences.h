// Summary sentences: the sentences of a text that can stand for themselves.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "indexer/analysis/outline.h"
#include "language/language.h"

namespace norvast::indexer {

struct SummarySentence {
  std::string text;
  std::size_t clusters = 0;
  std::vector<std::string> terms;  // its content words, three or more
  double weight = 1;               // below 1 for one that leans on its neighbours
};

// In their order, from the leading `limitBytes`: whole sentences of letters for the most part, of
// 20 to 300 user-perceived characters. Of a mail, greetings, quoted lines and the signature are
// left out. Notices of rights, of cookies and the like are left out unless there is nothing else.
std::vector<SummarySentence> summarySentences(const Outline& outline, const Language& language,
                                              std::size_t limitBytes);

}  // namespace norvast::indexer
