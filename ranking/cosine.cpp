#include "ranking/cosine.h"

#include <cmath>
#include <cstddef>

namespace norvast {

float cosine(std::span<const float> a, std::span<const float> b) {
  if (a.empty() || a.size() != b.size()) return 0;
  float dot = 0;
  for (std::size_t at = 0; at < a.size(); ++at) dot += a[at] * b[at];
  return cosineFromSums(dot, squaredNorm(a), squaredNorm(b));
}

float squaredNorm(std::span<const float> a) {
  float sum = 0;
  for (const float value : a) sum += value * value;
  return sum;
}

float cosineFromSums(float dot, float squaredNormOfA, float squaredNormOfB) {
  const float denominator = std::sqrt(squaredNormOfA) * std::sqrt(squaredNormOfB);
  return denominator == 0 ? 0 : dot / denominator;
}

}  // namespace norvast
