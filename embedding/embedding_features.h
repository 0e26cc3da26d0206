// Embedding features: what one word adds to the vector of its text.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace norvast {

// One feature's share of a vector: half its weight at each of these places, counted from 1, with
// the place's sign. Two of them may be the same.
struct Feature {
  double count = 1;  // how often it occurs in its word
  std::array<std::int16_t, 4> places{};
};

// The features of a word, which do not depend on its text:
//   - its stem;
//   - for a word of three or more characters, the 3-grams and 4-grams of its characters between the
//     marks < and >, in ascending byte order.
// A feature's bytes, behind "s:" for a stem and "g:" for a gram, are hashed with FNV-1a (64 bits)
// and the 64-bit finaliser of MurmurHash3. Four draws of SplitMix64 from that seed give its places
// (the low nine bits) and signs (the top bit set is minus).
struct WordFeatures {
  Feature stem;
  std::vector<Feature> grams;
  double gramsNorm = 0;  // the root of the sum of their squared counts
};

WordFeatures featuresOf(std::string_view word, std::string_view stem);

// Adds a word of that weight to `sum`: its stem with the weight, each gram with 1.3 times the
// weight times its count over the grams' norm, in that order.
void addFeatures(const WordFeatures& features, double weight, std::span<double> sum);

}  // namespace norvast
