// Summary: the few sentences that best stand for a text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace norvast {

inline constexpr std::size_t LONGEST_SUMMARY_CLUSTERS = 400;

// At most three whole sentences of the text, in its order, chosen by SumBasic: the sentence whose
// words are the most frequent on average, of those with the most frequent word of all; then the
// probabilities of its words are squared, so that the next one says something else (Nenkova and
// Vanderwende, "The Impact of Frequency on Summarization", 2005). A text without sentences, such as
// a table or a program, gives its first lines. Looks at the leading 50,000 bytes. Empty when there
// is nothing to be said in LONGEST_SUMMARY_CLUSTERS.
std::string summarize(std::string_view text);

}  // namespace norvast
