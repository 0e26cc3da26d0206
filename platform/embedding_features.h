// Embedding features: what one word adds to the vector of its text.
#pragma once

#include <span>
#include <string_view>

namespace norvast {

// Adds the features of a word to `sum`, in one fixed order:
//   - its stem, with the word's weight;
//   - for a word of three or more characters, the 3-grams and 4-grams of its characters between the
//     marks < and >, in ascending byte order, each with its count over the root of the sum of the
//     squared counts, times 1.3 times the word's weight.
// A feature's bytes, behind "s:" for a stem and "g:" for a gram, are hashed with FNV-1a (64 bits)
// and the 64-bit finaliser of MurmurHash3. Four draws of SplitMix64 from that seed give four places
// (the low nine bits) and signs (the top bit set is minus), to each of which half the weight is
// added.
void addFeatures(std::string_view word, std::string_view stem, double weight,
                 std::span<double> sum);

}  // namespace norvast
