// Content terms: the words of a question that are worth searching for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace norvast {

// The terms of a text in the order in which they occur, repeated as they are: the text in lower
// case and without diacritics, cut into runs of letters and numbers, less the runs of under three
// user-perceived characters and the stop words. `text` is UTF-8; the time is linear in its length.
std::vector<std::string> contentTerms(std::string_view text);

}  // namespace norvast
