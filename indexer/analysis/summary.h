// Summary: the few sentences that best stand for a text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "indexer/analysis/outline.h"
#include "language/language.h"

namespace norvast::indexer {

inline constexpr std::size_t LONGEST_SUMMARY_CLUSTERS = 400;

// What the text is (summary_lead.h), a colon, and at most three whole sentences of its prose, in
// their order, chosen by SumBasic: the sentence whose words are the most frequent on average, of
// those with the most frequent word of all; then the probabilities of its words are squared, so
// that the next one says something else (Nenkova and Vanderwende, "The Impact of Frequency on
// Summarization", 2005). Sentences near the beginning, where authors say what they are about, weigh
// more; notices of rights and the like are left out where there are others. A text without
// sentences, such as a table or a program, gives its first lines. Looks at the leading 50,000
// bytes. Empty when there is nothing to be said; at most LONGEST_SUMMARY_CLUSTERS long.
std::string summarize(const Outline& outline, std::string_view name, const Language& language);

}  // namespace norvast::indexer
