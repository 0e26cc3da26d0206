// Unicode text: user-perceived characters, canonical equivalence, folding, letters and numbers.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace norvast {

// Number of user-perceived characters (extended grapheme clusters, UAX #29) in a UTF-8 text.
std::size_t countClusters(std::string_view text);

// The first `limit` clusters of a UTF-8 text: a prefix of it, whole when it has no more. No
// cluster is split.
std::string_view firstClusters(std::string_view text, std::size_t limit);

// Normalization Form C (UAX #15) of a UTF-8 text: equal bytes for canonically equivalent texts.
std::string canonicalForm(std::string_view text);

// Calls `visit` with each cluster of a UTF-8 text, in order.
void forEachCluster(std::string_view text, const std::function<void(std::string_view)>& visit);

// The text in lower case, by the default mapping of no language (The Unicode Standard, 3.13).
std::string lowerCase(std::string_view text);

// The text without the diacritics of Latin, Greek and Cyrillic letters: é gives e, й gives и. After
// canonical decomposition, the nonspacing marks behind such a letter are removed; the rest is
// recomposed. Letters that are not decomposed stay (ø, ł, ß), as do the marks of other scripts,
// where they are a part of the letter.
std::string foldDiacritics(std::string_view text);

// Whether the first scalar of a cluster is a letter (has the Alphabetic property) or a number (has
// a Numeric_Type). UAX #44.
bool isLetterOrNumber(std::string_view cluster);

// Whether any cluster of the text begins with one.
bool hasLetterOrNumber(std::string_view text);

// The case of a cluster's first scalar.
enum class LetterCase { none, capital, small };
LetterCase letterCaseOf(std::string_view cluster);

}  // namespace norvast
