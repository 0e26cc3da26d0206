// Stem weights: the more often English uses a stem, the less it tells of a text.
#pragma once

#include <string_view>

namespace norvast {

// From 0.4 for the most frequent stems to 1 for all but the 900 most frequent ones
// (stem_weight_table.h).
double stemWeight(std::string_view stem);

}  // namespace norvast
