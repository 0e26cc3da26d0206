#include "language/stem_weights.h"

#include <algorithm>

#include "language/stem_weight_table.h"

namespace norvast {
namespace {

constexpr bool isBefore(const StemWeight& left, const StemWeight& right) {
  return left.stem < right.stem;
}
static_assert(std::is_sorted(STEM_WEIGHTS.begin(), STEM_WEIGHTS.end(), isBefore));

}  // namespace

double stemWeight(std::string_view stem) {
  const auto* const found =
      std::lower_bound(STEM_WEIGHTS.begin(), STEM_WEIGHTS.end(), StemWeight{stem, 0}, isBefore);
  return found != STEM_WEIGHTS.end() && found->stem == stem ? found->percent / 100.0 : 1;
}

}  // namespace norvast
