// Embedding words: the words of a text, each with its weight.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace norvast {

// The distinct words of a text in ascending byte order, lower-case, each with the square root of
// its count, times 0.1 for one that is a function word in this text (function_words.h). Empty for a
// text without a letter or digit. The text may be any bytes; invalid UTF-8 separates words.
//
// A word is a run of letters and digits; an apostrophe and s behind it are dropped with it. Counted
// are, each occurrence:
//   - a word as 1;
//   - the pieces of a word that is an identifier, cut where a small letter meets a capital, before
//     the last of several capitals that a small letter follows, and where letters meet digits,
//     those of two or more characters as 0.7 each;
//   - in a run of Chinese, Japanese or Korean characters each character as 0.5, as 1 when it is
//     alone, and each two neighbours as 1.
std::vector<std::pair<std::string, double>> weighedWords(std::string_view text);

}  // namespace norvast
